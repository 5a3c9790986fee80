'use strict';
// What the host wants of the touchpad, with what presses and the touchpad itself have changed of it.
const { isDeepStrictEqual } = require('node:util');
const { initialSettings, changed } = require('./settings');

class FollowedSettings {
  #wanted;
  #applied = initialSettings(); // as far as the session has them
  #status = 'normal'; // the touchpad's own

  constructor(settings) {
    this.#wanted = changed(initialSettings(), settings);
  }

  get wanted() {
    return this.#wanted;
  }
  get areApplied() {
    return isDeepStrictEqual(this.#applied, this.#wanted);
  }

  change(change) {
    this.#wanted = changed(this.#wanted, change);
  }

  // A new session knows of no disable.
  forgetStatus() {
    this.#status = 'normal';
  }

  /** Returns what the session had and what it is to have. What it changes meanwhile differs from then on. */
  startApplying() {
    const old = this.#applied;
    this.#applied = this.#wanted;
    return [old, this.#wanted];
  }

  /** Returns false when it is not known whether the activation that the press met is the wanted one. */
  followPress(button, light) {
    const { activation } = this.#wanted;
    const toggles = button === 'camera' || button === 'microphone';
    if (toggles && activation !== 'active-host-sets-lights') {
      this.change({ buttons: { [button]: { light } } });
      this.#applied = changed(this.#applied, { buttons: { [button]: { light } } });
    }
    return this.#applied.activation === activation;
  }

  // The end of a disable ends the chat's breathing; a resynchronisation, which is no change of the status, only
  // stops its light.
  followStatus(status) {
    const before = this.#status;
    this.#status = status;
    const endsDisable = before !== 'normal' && status !== before && status !== 'disabled';
    if (endsDisable) this.change({ chatBreathing: false });
  }

  /** Makes what a press, or the end of a disable, may have changed in the session differ. */
  doubt() {
    const { camera, microphone } = this.#wanted.buttons;
    this.#applied = changed(this.#applied, {
      buttons: { camera: { light: !camera.light }, microphone: { light: !microphone.light } },
      chatBreathing: !this.#wanted.chatBreathing,
    });
  }
}

module.exports = { FollowedSettings };
