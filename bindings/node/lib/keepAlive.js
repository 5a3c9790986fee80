'use strict';

// A timer longer than any session keeps the process running, as an open socket does.
const kMilliseconds = 0x7fffffff;

/** Returns what clearInterval ends. */
function keepAlive() {
  return setInterval(() => {}, kMilliseconds);
}

module.exports = { keepAlive };
