'use strict';
const assert = require('node:assert/strict');
const fs = require('node:fs');
const path = require('node:path');
const { describe, it } = require('node:test');
const { VelaAgent, VelaLibraryError } = require('..');
const { folder } = require('./touchpad');

const dll = path.join(process.env.VELA_BIN, 'VelaAgent.dll');

function failure(file, code, message) {
  assert.throws(
    () => VelaAgent.load(file),
    (error) =>
      error instanceof VelaLibraryError && error.code === code && error.message.includes(message),
  );
}

describe('loading', () => {
  it('says which file is missing', () => {
    const missing = path.join(folder, 'VelaAgent.dll');
    failure(missing, 'VELA_LIBRARY_MISSING', missing);
  });

  it('says which file is no library', () => {
    const text = path.join(folder, 'text.dll');
    fs.writeFileSync(text, 'no library');
    failure(text, 'VELA_LIBRARY_NOT_LOADED', text);
  });

  it('says which export another library lacks', () => {
    const other = path.join(process.env.SystemRoot, 'system32', 'hid.dll');
    failure(other, 'VELA_EXPORT_MISSING', 'InitLogger');
  });

  it('takes a full path only, so that no search finds another file', () => {
    for (const bad of ['VelaAgent.dll', 'bin\\VelaAgent.dll', '', undefined, 7]) {
      assert.throws(() => VelaAgent.load(bad), TypeError);
    }
  });

  it('gives the same agent for the same file', () => {
    assert.equal(VelaAgent.load(dll), VelaAgent.load(dll.toUpperCase()));
    assert.equal(VelaAgent.load(dll).path, path.normalize(dll));
  });

  it('has the version that the library has', () => {
    const version = fs.readFileSync(path.join(__dirname, '../../../VERSION'), 'utf8').trim();
    assert.equal(require('../package.json').version, version);
  });
});
