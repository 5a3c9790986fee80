'use strict';
// Processes that exit in various ways, with the session open or closed.
const assert = require('node:assert/strict');
const { spawnSync } = require('node:child_process');
const fs = require('node:fs');
const path = require('node:path');
const { after, afterEach, before, describe, it } = require('node:test');
const touchpad = require('./touchpad');

const dark = [
  'camera 0 0 inactive', 'microphone 0 0 inactive', 'chat 0 inactive', 'share-screen 0 inactive',
  'breathing 0',
];

// The host's output goes to a file: on Wine koffi ends a process whose output is discarded.
function run(script) {
  const output = fs.openSync(path.join(touchpad.folder, `${script}.txt`), 'w');
  const { status } = spawnSync(process.execPath, [path.join(__dirname, 'exitingHost.js'), script], {
    stdio: ['ignore', output, output],
    timeout: 60000,
  });
  fs.closeSync(output);
  return status;
}

describe('a host that only watches, without a touchpad', () => {
  it('runs until it closes the watch, and then ends by itself', () => assert.equal(run('close-watch'), 7));
});

describe('a host that exits', () => {
  afterEach(() => assert.deepEqual(touchpad.lights(), dark));

  describe('with a touchpad that stays', () => {
    before(() => touchpad.plug());
    after(() => touchpad.unplug());

    it('closes by itself what it left open', () => assert.equal(run('leave-open'), 7));
    it('needs nothing after it has closed', () => assert.equal(run('close'), 7));
    it('ends its watch as well', () => assert.equal(run('watch'), 7));
    it('ends by itself when it has closed its watch', () => assert.equal(run('close-watch'), 7));
    it('does so after an error that nobody caught', () => assert.equal(run('throw'), 1));
  });

  describe('with a detachable touchpad', () => {
    before(() => touchpad.plug('--product', 'Detachable touchpad'));
    after(() => touchpad.unplug());

    it('keeps its exit code when it left it open', () => assert.equal(run('leave-open'), 7));
    it('keeps its exit code when it watches the touchpad', () => assert.equal(run('watch'), 7));
    it('keeps its exit code after it has closed', () => assert.equal(run('close'), 7));
  });
});
