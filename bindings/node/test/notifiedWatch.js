'use strict';
const assert = require('node:assert/strict');
const path = require('node:path');
const { after, afterEach, before, describe, it } = require('node:test');
const koffi = require('koffi');
const { VelaAgent } = require('..');
const notifications = require('./notifications');
const touchpad = require('./touchpad');
const { breathing, end, lights, next, plugUntil, start, waitForLights } = require('./watching');

const otherAgent = VelaAgent.load(path.join(process.env.VELA_BIN, 'velactl_stand_in.dll'));
const user = koffi.load('user32.dll');
const findWindow = user.func('void *FindWindowExW(intptr_t parent, void *after, str16 name, void *title)');
const standInsWindow = () => findWindow(-3, null, 'VelaAgentWatch', null); // HWND_MESSAGE

describe('a watch that is notified', () => {
  before(notifications.useStandIn);
  after(notifications.useSystem);
  afterEach(end);

  for (const [kind, ...options] of [['stays'], ['can be taken off', '--product', 'Detachable touchpad']]) {
    it(`lights a touchpad that ${kind} whenever it comes back`, async () => {
      const watch = start();
      assert.equal(watch.isNotified, true);
      await watch.refresh();
      await plugUntil('found', () => touchpad.plug(...options));
      watch.seen.length = 0;
      for (let cycle = 1; cycle <= 2; ++cycle) {
        assert.equal(watch.isOpen, true);
        await waitForLights(lights);
        const lost = next('lost');
        touchpad.unplug();
        await lost;
        assert.equal(watch.isOpen, false);
        const found = next('found');
        touchpad.plug(...options);
        await found;
      }
      assert.deepEqual(watch.seen, ['lost', 'found', 'lost', 'found']);
    });
  }

  it('shows what a press toggled before, and what was changed meanwhile', async () => {
    touchpad.plug();
    const watch = start();
    await waitForLights(lights);
    const press = next('press');
    touchpad.press('camera');
    assert.deepEqual(await press, ['camera', true]);
    assert.equal(watch.settings.buttons.camera.light, true);
    const lost = next('lost');
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
    const watch = start();
    await waitForLights(lights);
    const statuses = [];
    watch.on('status', (status) => statuses.push(status));
    const status = next('status'); // of the activation after it
    notifications.resume();
    await status;
    await waitForLights(lights);
    assert.deepEqual(watch.seen, ['found']);
  });

  // The touchpad forgets the gesture; the library keeps it when it is closed in tablet mode.
  it('lights a touchpad that was disabled when it left', async () => {
    touchpad.plug();
    const watch = start();
    await waitForLights(lights);
    touchpad.press('gesture', 'disabled');
    while ((await next('status'))[0] !== 'disabled');
    const lost = next('lost');
    touchpad.unplug();
    await lost;
    touchpad.plug();
    await waitForLights(lights);
  });

  it('says so when the system refuses to notify it', async () => {
    const notified = start();
    const refused = otherAgent.watch(); // the stand-in takes one registration
    const { isNotified } = refused;
    await refused.close();
    assert.equal(isNotified, false);
    assert.equal(notified.isNotified, true);
    assert.notEqual(standInsWindow(), null);
  });

  it('ends the notifications when it is closed', async () => {
    const watch = start();
    assert.notEqual(standInsWindow(), null);
    await watch.close();
    assert.equal(standInsWindow(), null);
  });
});
