'use strict';
const assert = require('node:assert/strict');
const { once } = require('node:events');
const path = require('node:path');
const { after, afterEach, before, describe, it } = require('node:test');
const { setTimeout: settle } = require('node:timers/promises');
const koffi = require('koffi');
const { VelaAgent } = require('..');
const notifications = require('./notifications');
const touchpad = require('./touchpad');

const agent = VelaAgent.load(path.join(process.env.VELA_BIN, 'VelaAgent.dll'));
const lit = { enabled: true, visible: true };
const allLit = {
  activation: 'active',
  feature: true,
  buttons: { camera: lit, microphone: lit, chat: lit, 'share-screen': lit },
};
const lights = [
  'camera 0 3 active', 'microphone 0 3 active', 'chat 3 active', 'share-screen 3 active', 'breathing 0',
];
const cameraOn = ['camera 3 0 active', ...lights.slice(1)];
const dark = [
  'camera 0 0 inactive', 'microphone 0 0 inactive', 'chat 0 inactive', 'share-screen 0 inactive',
  'breathing 0',
];

const breathing = 'breathing';

let watch;
function start(settings = allLit) {
  watch = agent.watch(settings);
  watch.seen = [];
  for (const name of ['found', 'lost', 'held-by-other']) watch.on(name, () => watch.seen.push(name));
}

// Returns the lights; the report that starts the breathing has 8, those after it 15.
function lightsNow() {
  return touchpad.lights().map((line) => (/^breathing (8|15)$/.test(line) ? breathing : line));
}

async function waitForLights(expected) {
  for (let i = 0; i < 100 && lightsNow().join() !== expected.join(); ++i) await settle(20);
  assert.deepEqual(lightsNow(), expected);
}

const user = koffi.load('user32.dll');
const findWindow = user.func('void *FindWindowExW(intptr_t parent, void *after, str16 name, void *title)');
const standInsWindow = () => findWindow(-3, null, 'VelaAgentWatch', null); // HWND_MESSAGE

describe('a watch that is notified', () => {
  before(notifications.useStandIn);
  after(notifications.useSystem);
  afterEach(async () => {
    await watch.close();
    touchpad.unplugIfPlugged();
  });

  for (const [kind, ...options] of [['stays'], ['can be taken off', '--product', 'Detachable touchpad']]) {
    it(`lights a touchpad that ${kind} whenever it comes back`, async () => {
      start();
      assert.equal(watch.isNotified, true);
      for (let cycle = 1; cycle <= 2; ++cycle) {
        const found = once(watch, 'found');
        touchpad.plug(...options);
        await found;
        assert.equal(watch.isOpen, true);
        await waitForLights(lights);
        const lost = once(watch, 'lost');
        touchpad.unplug();
        await lost;
        assert.equal(watch.isOpen, false);
      }
      assert.deepEqual(watch.seen, ['found', 'lost', 'found', 'lost']);
    });
  }

  it('shows what a press toggled before, and what was changed meanwhile', async () => {
    touchpad.plug();
    start();
    await waitForLights(lights);
    const press = once(watch, 'press');
    touchpad.press('camera');
    assert.deepEqual(await press, ['camera', true]);
    assert.equal(watch.settings.buttons.camera.light, true);
    const lost = once(watch, 'lost');
    touchpad.unplug();
    await lost;
    await watch.change({ brightness: 200, chatBreathingEnabled: true, chatBreathing: true });
    touchpad.plug();
    await waitForLights([
      'camera 200 0 active', 'microphone 0 200 active', 'chat 200 active', 'share-screen 200 active',
      breathing,
    ]);
  });

  it('opens the touchpad again after a resume, and does not call that a loss', async () => {
    touchpad.plug();
    start();
    await waitForLights(lights);
    const statuses = [];
    watch.on('status', (status) => statuses.push(status));
    const status = once(watch, 'status'); // of the activation after it
    notifications.resume();
    await status;
    await waitForLights(lights);
    assert.deepEqual(watch.seen, ['found']);
  });

  // The touchpad forgets the gesture; the library keeps it when it is closed in tablet mode.
  it('lights a touchpad that was disabled when it left', async () => {
    touchpad.plug();
    start();
    await waitForLights(lights);
    touchpad.press('gesture', 'disabled');
    while ((await once(watch, 'status'))[0] !== 'disabled');
    const lost = once(watch, 'lost');
    touchpad.unplug();
    await lost;
    touchpad.plug();
    await waitForLights(lights);
  });

  it('ends the notifications when it is closed', async () => {
    start();
    assert.notEqual(standInsWindow(), null);
    await watch.close();
    assert.equal(standInsWindow(), null);
  });
});

describe('a watch that is not notified', () => {
  before(notifications.useNone);
  after(notifications.useSystem);
  afterEach(async () => {
    await watch.close();
    touchpad.unplugIfPlugged();
  });

  it('says so, and is refreshed by the host', async () => {
    start();
    assert.equal(watch.isNotified, false);
    await watch.refresh();
    assert.equal(watch.isOpen, false);
    for (let cycle = 1; cycle <= 2; ++cycle) {
      touchpad.plug();
      await watch.refresh();
      assert.equal(watch.isOpen, true);
      await waitForLights(lights);
      touchpad.unplug();
      await watch.refresh();
      assert.equal(watch.isOpen, false);
    }
    await new Promise(setImmediate);
    assert.deepEqual(watch.seen, ['found', 'lost', 'found', 'lost']);
  });

  it('tries again for a while when it cannot open', async () => {
    start();
    await watch.refresh();
    const found = once(watch, 'found');
    touchpad.plug();
    await found;
    await waitForLights(lights);
  });

  it('sets what the host changes, and a press after it', async () => {
    touchpad.plug();
    start();
    await waitForLights(lights);
    await watch.change({ buttons: { camera: { light: true }, chat: { visible: false } } });
    await waitForLights(['camera 3 0 active', lights[1], 'chat 0 inactive', ...lights.slice(3)]);
    await watch.change({ activation: 'suspended' });
    await waitForLights(dark);
    await watch.change({ activation: 'active', buttons: { chat: lit } });
    await waitForLights(cameraOn);
  });

  it('ends the breathing with a disable', async () => {
    touchpad.plug();
    start({ ...allLit, chatBreathingEnabled: true, chatBreathing: true });
    await waitForLights([...lights.slice(0, 4), breathing]);
    const statuses = [];
    watch.on('status', (status) => statuses.push(status));
    touchpad.press('disabled', 'enabled');
    while (statuses.length < 2) await once(watch, 'status');
    assert.deepEqual(statuses, ['disabled', 'normal']);
    assert.equal(watch.settings.chatBreathing, false);
    await waitForLights(lights);
  });

  it('darkens the touchpad when it is closed, and lets the agent go', async () => {
    touchpad.plug();
    start();
    await waitForLights(lights);
    assert.throws(() => agent.watch(), /open already/);
    await watch.close();
    await waitForLights(dark);
    assert.equal(await agent.open(), 'open');
    assert.throws(() => agent.watch(), /open already/);
    await watch.close(); // does nothing any more
    assert.equal(agent.isOpen, true);
    await agent.close();
  });

  it('wrong settings are told at once', async () => {
    start({});
    assert.deepEqual(watch.settings.buttons.chat, { enabled: false, visible: false, light: false });
    assert.throws(() => watch.change({ volume: 3 }), /no such setting: volume/);
    assert.throws(() => watch.change({ buttons: { speaker: lit } }), /no such setting: speaker/);
    assert.throws(() => watch.change({ buttons: { chat: { light: 1 } } }), TypeError);
    assert.throws(() => watch.change({ brightness: 256 }), RangeError);
    assert.throws(() => watch.change({ activation: 'on' }), TypeError);
    assert.equal(watch.settings.brightness, 3);
  });
});
