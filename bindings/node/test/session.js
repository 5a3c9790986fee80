'use strict';
const assert = require('node:assert/strict');
const { once } = require('node:events');
const fs = require('node:fs');
const path = require('node:path');
const { after, afterEach, before, beforeEach, describe, it } = require('node:test');
const { isMainThread } = require('node:worker_threads');
const { VelaAgent } = require('..');
const touchpad = require('./touchpad');

const agent = VelaAgent.load(path.join(process.env.VELA_BIN, 'VelaAgent.dll'));
const buttons = ['camera', 'microphone', 'chat', 'share-screen'];

async function light() {
  assert.equal(await agent.open(), 'open');
  assert.equal(await agent.activate('active'), true);
  assert.equal(await agent.enableFeature(true), true);
  for (const button of buttons) {
    assert.equal(await agent.enableButton(button, true), true);
    assert.equal(await agent.setButtonVisible(button, true), true);
  }
}

// A thread of the library writes the report.
async function waitForLights(expected) {
  let lights = touchpad.lights();
  for (let i = 0; i < 50 && lights.join() !== expected.join(); ++i) lights = touchpad.lights();
  assert.deepEqual(lights, expected);
}

// Returns the arguments of the next events of this name.
function events(name, count) {
  const seen = [];
  return new Promise((resolve) => {
    agent.on(name, (...args) => {
      seen.push(args);
      if (seen.length === count) resolve(seen);
    });
  });
}

describe('without a touchpad', () => {
  it('nothing is present and nothing opens', async () => {
    assert.equal(await agent.isPresent(), false);
    assert.equal(await agent.open(), 'not-found');
    assert.equal(agent.isOpen, false);
    assert.equal(await agent.enableFeature(true), false);
    assert.equal(agent.isFeatureEnabled, false);
    assert.equal(await agent.close(), false);
  });

  it('refuses a log directory that does not exist, and no directory at all', () => {
    const missing = path.join(touchpad.folder, 'missing');
    const code = 'VELA_LOG_DIRECTORY_MISSING';
    assert.throws(() => agent.startLog(missing), { code, message: `there is no log directory ${missing}` });
    assert.throws(() => agent.startLog(agent.path), { code });
    assert.throws(() => agent.startLog(''), TypeError);
  });

  it('keeps logging where a relative directory was', async () => {
    const before = process.cwd();
    fs.mkdirSync(path.join(touchpad.folder, 'relative'));
    process.chdir(touchpad.folder);
    await agent.startLog('relative');
    process.chdir(before);
    await agent.stopLog();
    assert.ok(fs.existsSync(path.join(touchpad.folder, 'relative', 'VelaAgent.log')));
  });

  it('wrong arguments are told at once', async () => {
    assert.throws(() => agent.startLog(), TypeError);
    await assert.rejects(agent.setButtonLight('speaker', true), /no such button: speaker \(camera, /);
    await assert.rejects(agent.setButtonLight('camera', 1), TypeError);
    await assert.rejects(agent.activate('toString'), TypeError);
    assert.throws(() => agent.setBrightness(256), RangeError);
    assert.throws(() => agent.isButtonEnabled(0), TypeError);
    await assert.rejects(agent.setClickMode(1, 65536), RangeError);
    await assert.rejects(agent.setHapticLevel(-1), RangeError);
  });
});

describe('a session', () => {
  before(() => touchpad.plug());
  after(() => touchpad.unplug());
  afterEach(async () => {
    agent.removeAllListeners();
    await agent.close();
  });

  it('lights the buttons as asked, in the order asked', async () => {
    await light();
    agent.setBrightness(200);
    agent.setButtonLight('camera', true);
    agent.setButtonLight('camera', false);
    agent.setButtonLight('microphone', true);
    agent.setButtonVisible('share-screen', false);
    agent.enableChatBreathing(true);
    assert.equal(await agent.setButtonBreathing('chat', true), true);
    await waitForLights([
      'camera 0 200 active', 'microphone 200 0 active', 'chat 200 active',
      'share-screen 0 inactive', 'breathing 8',
    ]);
    assert.equal(agent.brightness, 200);
    assert.equal(agent.isActivated, true);
    assert.equal(agent.isFeatureEnabled, true);
    assert.equal(agent.isChatBreathingEnabled, true);
    assert.equal(agent.isButtonEnabled('chat'), true);
    assert.equal(await agent.close(), true);
    await waitForLights([
      'camera 0 0 inactive', 'microphone 0 0 inactive', 'chat 0 inactive',
      'share-screen 0 inactive', 'breathing 0',
    ]);
  });

  it('tells presses and status changes on the JavaScript thread', async () => {
    await light();
    const presses = events('press', 4);
    touchpad.press('camera', 'microphone', 'chat', 'share-screen');
    assert.deepEqual(await presses, [
      ['camera', true], ['microphone', true], ['chat', true], ['share-screen', true],
    ]);
    assert.equal(isMainThread, true);
    const statuses = events('status', 3);
    touchpad.press('gesture', 'disabled', 'enabled');
    assert.deepEqual(await statuses, [
      ['temporarily-disabled'], ['disabled'], ['temporarily-disabled'],
    ]);
  });

  it('loses no press while the JavaScript thread is busy', async () => {
    await light();
    const presses = events('press', 20);
    touchpad.press(...Array(20).fill('camera')); // nothing else runs here meanwhile
    assert.deepEqual(await presses, [...Array(20).keys()].map((i) => ['camera', i % 2 === 0]));
  });

  it('may be closed by a listener, and opened again', async () => {
    await light();
    const closed = new Promise((resolve) => {
      agent.once('press', () => resolve(agent.close()));
    });
    touchpad.press('camera');
    assert.equal(await closed, true);
    await light();
    const press = once(agent, 'press');
    touchpad.press('chat');
    assert.deepEqual(await press, ['chat', true]);
  });

  it('may be closed while presses arrive that nobody waits for', async () => {
    for (let round = 0; round < 5; ++round) {
      await light();
      touchpad.press('camera', 'camera', 'camera');
      assert.equal(await agent.close(), true);
    }
  });

  it('answers what it is asked of the touchpad', async () => {
    await light();
    assert.equal(await agent.isPresent(), true);
    assert.equal(await agent.isDetachable(), false);
    assert.equal(agent.supportsBidirectionalSwipe, true);
    assert.equal(await agent.setClickMode(1, 300), true);
    assert.equal(await agent.isClickModeOn(), true);
    assert.equal(await agent.setClickMode(0, 0), true);
    assert.equal(await agent.isClickModeOn(), false);
    assert.equal(await agent.requestStatus(), true);
  });

  it('writes its log, in any folder', async () => {
    const folder = path.join(touchpad.folder, 'Ger\u00e4te \u89c6\u9891');
    fs.mkdirSync(folder);
    await agent.startLog(folder);
    await light();
    await agent.close();
    await agent.stopLog();
    const log = fs.readFileSync(path.join(folder, 'VelaAgent.log'), 'latin1');
    assert.match(log, /\{INFO @ Initialize\} =+ CTandrelHID initialize succeeded =+/);
  });
});

describe('the haptic touchpad', () => {
  beforeEach(() => touchpad.plugHaptic());
  afterEach(() => touchpad.unplug('--name', 'haptic'));

  it('has a level that can be set', async () => {
    assert.equal(await agent.isHapticPresent(), true);
    assert.equal(await agent.openHaptic(), true);
    assert.equal(await agent.setHapticLevel(80), true);
    assert.equal(await agent.getHapticLevel(), 80);
    assert.equal(await agent.closeHaptic(), true);
    assert.equal(await agent.closeHaptic(), false);
  });
});
