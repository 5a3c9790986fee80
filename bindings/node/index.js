'use strict';
// The touchpad for Node.js and Electron hosts: calls that may wait are promises, presses and status
// changes are events on the JavaScript thread.
const { EventEmitter } = require('node:events');
const { CallQueue } = require('./lib/callQueue');
const { ExitGuard } = require('./lib/exit');
const { keepAlive } = require('./lib/keepAlive');
const { loadLibrary, VelaLibraryError } = require('./lib/library');
const { existingDirectory } = require('./lib/logDirectory');
const names = require('./lib/names');
const { Watch } = require('./lib/watch');

const agents = new Map(); // a library has one session, so there is one agent for each file

class VelaAgent extends EventEmitter {
  #library;
  #queue = new CallQueue();
  #isOpen = false;
  #keepAlive;
  #exit;
  #onPress;
  #onStatus;
  #watch;

  /** Returns the agent of the DLL at this full path. Throws a VelaLibraryError. */
  static load(path) {
    const library = loadLibrary(path);
    if (!agents.has(library.path)) agents.set(library.path, new VelaAgent(library));
    return agents.get(library.path);
  }

  /** Hosts call load instead. */
  constructor(library) {
    super();
    this.#library = library;
    this.#exit = new ExitGuard(library);
    // The callbacks are registered once and stay for the process's lifetime, so that late calls find them.
    this.#onPress = library.pressCallback((button, light) => {
      this.#notify('press', names.nameOf(names.buttons, button), light !== 0);
    });
    this.#onStatus = library.statusCallback((status) =>
      this.#notify('status', names.nameOf(names.statuses, status)),
    );
  }

  get path() {
    return this.#library.path;
  }
  get isOpen() {
    return this.#isOpen;
  }

  // ---- logger

  startLog(directory) {
    return this.#queue.run(this.#library.InitLogger, existingDirectory(directory));
  }
  stopLog() {
    return this.#queue.run(this.#library.UnInitLogger);
  }

  // ---- session

  async isPresent() {
    return (await this.#queue.run(this.#library.IsVelaPresent)) !== 0;
  }

  async open() {
    const result = await this.#queue.run(this.#library.Init);
    if (result === names.initResults.open && !this.#isOpen) {
      this.#isOpen = true;
      this.#keepAlive = keepAlive();
      this.#library.SetVelaButtonPressCallback(this.#onPress);
      this.#library.SetVelaStatusChangeCallback(this.#onStatus);
      this.#exit.opened();
    }
    return names.nameOf(names.initResults, result);
  }

  async close() {
    const closed = (await this.#queue.run(this.#library.UnInit)) !== 0;
    this.#isOpen = false;
    clearInterval(this.#keepAlive);
    this.#exit.closed();
    return closed;
  }

  /** Returns a Watch, which opens and closes the touchpad by itself until it is closed. */
  watch(settings = {}) {
    if (this.#isOpen || this.#watch) throw new Error('the touchpad is open already');
    this.#watch = new Watch(this, settings, () => (this.#watch = undefined));
    return this.#watch;
  }

  enableFeature(on) {
    return this.#set(this.#library.EnableFeature, on);
  }
  get isFeatureEnabled() {
    return this.#library.IsFeatureEnabled() !== 0;
  }

  async activate(activation) {
    const value = names.valueOf(names.activations, activation, 'activation');
    const isActive = value <= names.activations['active-host-sets-lights'];
    if (this.#isOpen && isActive && (await this.isDetachable())) {
      this.#exit.leavesAThread();
    }
    return (await this.#queue.run(this.#library.Activate, value)) !== 0;
  }
  get isActivated() {
    return this.#library.IsActivated() !== 0;
  }

  // ---- buttons

  enableButton(button, on) {
    return this.#setButton(this.#library.EnableSingleButton, button, on);
  }
  isButtonEnabled(button) {
    return this.#library.IsSingleButtonEnabled(names.valueOf(names.buttons, button, 'button')) !== 0;
  }
  setButtonVisible(button, on) {
    return this.#setButton(this.#library.SetButtonVisible, button, on);
  }
  setButtonLight(button, on) {
    return this.#setButton(this.#library.SetButtonLight, button, on);
  }
  setButtonBreathing(button, on) {
    return this.#setButton(this.#library.SetButtonBreathing, button, on);
  }
  enableChatBreathing(on) {
    return this.#set(this.#library.EnableChatBreathing, on);
  }
  get isChatBreathingEnabled() {
    return this.#library.IsChatBreathingEnabled() !== 0;
  }

  setBrightness(level) {
    return this.#queue.run(this.#library.SetVelaBrightness, names.integer(level, 255, 'brightness'));
  }
  get brightness() {
    return this.#library.GetVelaBrightness();
  }

  // ---- the touchpad's settings and state

  async setClickMode(mode, value) {
    names.integer(mode, 0xffffffff, 'click mode');
    names.integer(value, 0xffff, "click mode's value");
    return (await this.#queue.run(this.#library.SetClickMode, mode, value)) !== 0;
  }
  async isClickModeOn() {
    return (await this.#queue.run(this.#library.GetClickMode)) !== 0;
  }
  async requestStatus() {
    return (await this.#queue.run(this.#library.UpdateVelaState)) !== 0;
  }
  async isDetachable() {
    return (await this.#queue.run(this.#library.IsDetachable)) !== 0;
  }
  get supportsBidirectionalSwipe() {
    return this.#library.IsSupportBiDirectionSwipe() !== 0;
  }

  // ---- haptic touchpad

  async isHapticPresent() {
    return (await this.#queue.run(this.#library.IsHapticTPPresent)) !== 0;
  }
  async openHaptic() {
    return (await this.#queue.run(this.#library.InitHapticTP)) !== 0;
  }
  async closeHaptic() {
    return (await this.#queue.run(this.#library.UnInitHapticTP)) !== 0;
  }
  getHapticLevel() {
    return this.#queue.run(this.#library.GetHapticTPIntensityLevel);
  }
  async setHapticLevel(level) {
    names.integer(level, 0xffffffff, 'haptic level');
    return (await this.#queue.run(this.#library.SetHapticTPIntensityLevel, level)) !== 0;
  }

  // Notifies the host when the library's callback has returned: koffi keeps an error thrown in it to itself.
  #notify(...event) {
    if (this.#isOpen) process.nextTick(() => this.emit(...event));
  }

  async #set(call, on) {
    return (await this.#queue.run(call, names.flag(on))) !== 0;
  }
  async #setButton(call, button, on) {
    const id = names.valueOf(names.buttons, button, 'button');
    return (await this.#queue.run(call, id, names.flag(on))) !== 0;
  }
}

module.exports = { VelaAgent, VelaLibraryError };
