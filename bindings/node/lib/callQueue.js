'use strict';
// Runs calls of the library one after the other on a thread of Node's pool: in the order of the host's calls,
// and never on the JavaScript thread, which must be free for the callbacks that a call waits for.

class CallQueue {
  #last = Promise.resolve();

  /** Returns a promise of the result of a koffi function. */
  run(call, ...args) {
    const result = this.#last.then(
      () =>
        new Promise((resolve, reject) => {
          call.async(...args, (error, value) => (error ? reject(error) : resolve(value)));
        }),
    );
    this.#last = result.catch(() => {}); // a failed call does not stop the next one
    return result;
  }
}

module.exports = { CallQueue };
