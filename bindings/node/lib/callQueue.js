'use strict';
// Runs calls of the library one after the other on a thread of Node's pool: in the order in which the
// host asked for them, and never on the JavaScript thread, which has to be free for the callbacks that a
// call waits for.

class CallQueue {
  #last = Promise.resolve();

  /** A promise of the result of a koffi function. */
  run(call, ...args) {
    const result = this.#last.then(
      () =>
        new Promise((resolve, reject) => {
          call.async(...args, (error, value) => (error ? reject(error) : resolve(value)));
        }),
    );
    this.#last = result.catch(() => {}); // a call that failed does not stop the next one
    return result;
  }
}

module.exports = { CallQueue };
