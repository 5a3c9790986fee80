'use strict';
// Listeners that throw. Their errors are uncaught ones, as of any emitter.
const assert = require('node:assert/strict');
const { after, afterEach, before, beforeEach, describe, it } = require('node:test');
const { setTimeout: settle } = require('node:timers/promises');
const notifications = require('./notifications');
const touchpad = require('./touchpad');
const { agent, cameraOn, end, lights, start, waitForLights } = require('./watching');

let uncaught;

function throwAt(emitter, ...names) {
  for (const name of names) {
    emitter.on(name, () => {
      throw new Error(name);
    });
  }
}

async function waitForErrors(...messages) {
  for (let i = 0; i < 500 && uncaught.length < messages.length; ++i) await settle(20);
  assert.deepEqual(uncaught.splice(0), messages);
}

describe('the error of a listener', () => {
  before(notifications.useNone);
  after(notifications.useSystem);
  beforeEach(() => {
    touchpad.plug();
    uncaught = [];
    process.setUncaughtExceptionCaptureCallback(({ message }) => uncaught.push(message));
  });
  afterEach(async () => {
    process.setUncaughtExceptionCaptureCallback(null);
    agent.removeAllListeners();
    await end();
    await agent.close();
  });

  it('is uncaught, and the next event comes', async () => {
    await agent.open();
    await agent.activate('active');
    await agent.enableFeature(true);
    await agent.enableButton('camera', true);
    throwAt(agent, 'press', 'status');
    touchpad.press('camera', 'camera', 'disabled');
    await waitForErrors('press', 'press', 'status');
  });

  it('does not stop a watch', async () => {
    const watch = start();
    throwAt(watch, 'found', 'lost', 'press');
    await waitForErrors('found');
    await waitForLights(lights);
    touchpad.press('camera');
    await waitForErrors('press');
    await waitForLights(cameraOn);
    touchpad.unplug();
    await watch.refresh();
    await waitForErrors('lost');
    touchpad.plug();
    await watch.refresh();
    await waitForErrors('found');
    await waitForLights(cameraOn);
    throwAt(watch, 'status');
    touchpad.press('gesture');
    await waitForErrors('status');
  });
});
