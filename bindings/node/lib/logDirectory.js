'use strict';
// The library does not check a log directory: a relative one would follow the current directory, and a
// missing one would produce neither a file nor an error.
const fs = require('node:fs');
const path = require('node:path');

/** Returns the full path of a directory. Throws when it does not exist. */
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
