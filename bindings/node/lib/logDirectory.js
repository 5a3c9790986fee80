'use strict';
// The library takes a log directory as it is: a relative one would follow the current directory, and one
// that does not exist would give no file and no word about it.
const fs = require('node:fs');
const path = require('node:path');

/** The full path of a directory. Throws at once when there is none. */
function existingDirectory(directory) {
  if (typeof directory !== 'string' || directory === '') {
    throw new TypeError('the log directory has to be a path');
  }
  const full = path.resolve(directory);
  if (!fs.statSync(full, { throwIfNoEntry: false })?.isDirectory()) {
    const error = new Error(`there is no log directory ${full}`);
    error.code = 'VELA_LOG_DIRECTORY_MISSING';
    throw error;
  }
  return full;
}

module.exports = { existingDirectory };
