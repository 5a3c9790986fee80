'use strict';
const assert = require('node:assert/strict');
const { after, afterEach, before, describe, it } = require('node:test');
const notifications = require('./notifications');
const touchpad = require('./touchpad');
const {
  agent, allLit, breathing, cameraOn, dark, end, lights, lit, next, start, waitForLights,
} = require('./watching');

describe('a watch that is not notified', () => {
  before(notifications.useNone);
  after(notifications.useSystem);
  afterEach(end);

  it('says so, and is refreshed by the host', async () => {
    const watch = start();
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
    const watch = start();
    await watch.refresh();
    const found = next('found');
    touchpad.plug();
    await found;
    await waitForLights(lights);
  });

  it('sets what the host changes, and a press after it', async () => {
    touchpad.plug();
    const watch = start();
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
    const watch = start({ ...allLit, chatBreathingEnabled: true, chatBreathing: true });
    await waitForLights([...lights.slice(0, 4), breathing]);
    const statuses = [];
    watch.on('status', (status) => statuses.push(status));
    touchpad.press('disabled', 'enabled');
    while (statuses.length < 2) await next('status');
    assert.deepEqual(statuses, ['disabled', 'normal']);
    assert.equal(watch.settings.chatBreathing, false);
    await waitForLights(lights);
  });

  it('darkens the touchpad when it is closed, and lets the agent go', async () => {
    touchpad.plug();
    const watch = start();
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
    const watch = start({});
    assert.deepEqual(watch.settings.buttons.chat, { enabled: false, visible: false, light: false });
    assert.throws(() => watch.change({ volume: 3 }), /no such setting: volume/);
    assert.throws(() => watch.change({ buttons: { speaker: lit } }), /no such setting: speaker/);
    assert.throws(() => watch.change({ buttons: { chat: { light: 1 } } }), TypeError);
    assert.throws(() => watch.change({ brightness: 256 }), RangeError);
    assert.throws(() => watch.change({ activation: 'on' }), TypeError);
    assert.equal(watch.settings.brightness, 3);
  });
});
