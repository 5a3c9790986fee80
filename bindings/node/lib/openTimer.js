'use strict';
// When to open the touchpad next: shortly after something happened to it, and after a pause when a try failed.

// A device has several interfaces, which come and leave one after the other.
const kSettlingMilliseconds = 20;
// The pauses between tries double from the first: 12.7 s in all.
const kFirstPauseMilliseconds = 50;
const kMostTries = 9;

class OpenTimer {
  #timer;
  #failedTries = 0; // in a row

  get isFirstTry() {
    return this.#failedTries === 0;
  }

  /** Begins a new row of tries. */
  beginAgain() {
    this.#failedTries = 0;
  }

  /** Begins a new row of tries, and calls `then` when nothing more happens for a moment. */
  startSettling(then) {
    this.beginAgain();
    this.#start(kSettlingMilliseconds, then);
  }

  /** Calls `then` after a pause when a try has failed, unless it was the row's last, or the timer runs already. */
  startPause(then) {
    if (this.#timer || ++this.#failedTries >= kMostTries) return;
    this.#start(kFirstPauseMilliseconds * 2 ** (this.#failedTries - 1), then);
  }

  stop() {
    clearTimeout(this.#timer);
    this.#timer = undefined;
  }

  #start(milliseconds, then) {
    this.stop();
    this.#timer = setTimeout(() => {
      this.#timer = undefined;
      then();
    }, milliseconds);
  }
}

module.exports = { OpenTimer };
