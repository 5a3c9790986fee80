'use strict';
// Keeps the touchpad as the host wants it, whatever happens to it: opens it when it arrives, closes it when it
// leaves, and after every arrival and resume sets again what the host has set.
const { EventEmitter } = require('node:events');
const { DeviceEvents } = require('./deviceEvents');
const { FollowedSettings } = require('./followedSettings');
const { keepAlive } = require('./keepAlive');
const { OpenTimer } = require('./openTimer');
const { apply, replay } = require('./settings');

// The session may stop the breathing only after it has reported a status.
const kSettlingMilliseconds = 20;

class Watch extends EventEmitter {
  #agent;
  #onEnd;
  #events;
  #keepAlive;
  #settings;
  #isOpen = false;
  #isHeld = false; // by another program, as the last try found
  #isApplying = false;
  #isSwitching = false;
  #reopens = false;
  #opens = true;
  #openTimer = new OpenTimer();
  #againTimer;
  #running; // the promise of the work under way
  #closing;

  /** Hosts call VelaAgent's watch instead. */
  constructor(agent, settings, onEnd) {
    super();
    this.#settings = new FollowedSettings(settings);
    this.#agent = agent;
    this.#onEnd = onEnd;
    this.#keepAlive = keepAlive();
    agent.on('press', this.#onPress).on('status', this.#onStatus);
    this.#events = new DeviceEvents({
      onArrival: () => this.#isOpen || this.#openTimer.startSettling(this.#openNow),
      onRemoval: () => (this.#isOpen || this.#running) && this.#openTimer.startSettling(this.#reopenNow),
      onResume: () => this.#openTimer.startSettling(this.#reopenNow),
    });
    this.#work();
  }

  get settings() {
    return structuredClone(this.#settings.wanted);
  }
  get isOpen() {
    return this.#isOpen;
  }
  get isNotified() {
    return this.#events.isOn;
  }

  change(change) {
    this.#settings.change(change);
    return this.#work();
  }

  refresh() {
    this.#openTimer.beginAgain();
    return this.#reopenNow();
  }

  close() {
    this.#closing ??= this.#end();
    return this.#closing;
  }

  async #end() {
    await this.#running;
    clearInterval(this.#keepAlive);
    await this.#events.end();
    this.#agent.off('press', this.#onPress).off('status', this.#onStatus);
    this.#forgetTimers();
    this.#isOpen = false;
    await this.#agent.close();
    this.#onEnd();
  }

  // ---- what happens outside

  #openNow = () => {
    this.#opens = true;
    return this.#work();
  };

  #reopenNow = () => {
    this.#reopens = true;
    return this.#work();
  };

  // While settings are being set it is not known which of them the press met.
  #onPress = (button, light) => {
    if (!this.#settings.followPress(button, light) || this.#isApplying) this.#setAgainSoon();
    this.emit('press', button, light);
  };

  #onStatus = (status) => {
    const isTouchpads = ['normal', 'temporarily-disabled', 'disabled'].includes(status);
    if (isTouchpads && !(this.#isSwitching && status === 'normal')) this.#settings.followStatus(status);
    if (isTouchpads && status !== 'disabled') this.#setAgainSoon();
    this.emit('status', status);
  };

  // Makes a call that reports statuses itself.
  #switching = async (call) => {
    this.#isSwitching = true;
    try {
      await call();
    } finally {
      this.#isSwitching = false;
    }
  };

  #setAgainSoon() {
    clearTimeout(this.#againTimer);
    this.#againTimer = setTimeout(() => {
      this.#settings.doubt();
      this.#work();
    }, kSettlingMilliseconds);
  }

  // ---- opening and setting, one thing at a time

  #work() {
    this.#running ??= this.#run();
    return this.#running;
  }

  async #run() {
    await null; // until #running is set
    try {
      while (!this.#closing) {
        if (this.#reopens) await this.#reopen();
        else if (this.#opens && !this.#isOpen) await this.#open();
        else if (this.#isOpen && !this.#settings.areApplied) await this.#apply();
        else break;
      }
    } finally {
      this.#running = undefined;
    }
  }

  // A listener that throws does not stop the work.
  #notify(name) {
    process.nextTick(() => this.emit(name));
  }

  // The host is notified only when the touchpad is gone then.
  async #reopen() {
    const wasOpen = this.#isOpen;
    this.#reopens = false;
    this.#isOpen = false;
    await this.#switching(() => this.#agent.close());
    await this.#tryOpen();
    if (this.#isOpen !== wasOpen) this.#notify(this.#isOpen ? 'found' : 'lost');
    if (this.#isHeld) this.#notify('held-by-other');
  }

  async #open() {
    const isKnown = this.#isHeld && !this.#openTimer.isFirstTry;
    await this.#tryOpen();
    if (this.#isOpen) this.#notify('found');
    if (this.#isHeld && !isKnown) this.#notify('held-by-other');
  }

  async #tryOpen() {
    this.#opens = false;
    this.#forgetTimers();
    this.#settings.forgetStatus();
    const [, wanted] = this.#settings.startApplying();
    this.#isApplying = true;
    const result = await this.#agent.open();
    if (result === 'open') await replay(this.#agent, wanted, this.#switching);
    this.#isApplying = false;
    this.#isOpen = result === 'open';
    this.#isHeld = result === 'held-by-other';
    if (!this.#isOpen) this.#openTimer.startPause(this.#openNow);
  }

  async #apply() {
    const [old, now] = this.#settings.startApplying();
    this.#isApplying = true;
    await apply(this.#agent, old, now, this.#switching);
    this.#isApplying = false;
  }

  #forgetTimers() {
    this.#openTimer.stop();
    clearTimeout(this.#againTimer);
  }
}

module.exports = { Watch };
