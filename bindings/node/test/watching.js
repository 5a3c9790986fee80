'use strict';
// The watch that a test has, and the lights of its touchpad.
const assert = require('node:assert/strict');
const { once } = require('node:events');
const path = require('node:path');
const { setTimeout: settle } = require('node:timers/promises');
const { VelaAgent } = require('..');
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

// Returns a watch that lists what it emits of the touchpad's coming and going.
function start(settings = allLit) {
  watch = agent.watch(settings);
  watch.seen = [];
  for (const name of ['found', 'lost', 'held-by-other']) watch.on(name, () => watch.seen.push(name));
  return watch;
}

async function end() {
  await watch?.close();
  touchpad.unplugAll();
}

// Waits for the watch's next event of this name. Without a limit, a missing one would hang all tests.
function next(name, milliseconds = 10000) {
  return once(watch, name, { signal: AbortSignal.timeout(milliseconds) });
}

// Plugs a device in until the watch emits this event: Wine notifies a process of arrivals only some time after it
// has asked for that, and loses those before.
async function plugUntil(name, plug = touchpad.plug, unplug = touchpad.unplug) {
  for (let attempts = 5; ; --attempts) {
    plug();
    try {
      return await next(name, 2000);
    } catch (error) {
      if (attempts === 1) throw error;
      unplug();
    }
  }
}

// Returns the lights; the report that starts the breathing has 8, those after it 15.
function lightsNow() {
  return touchpad.lights().map((line) => (/^breathing (8|15)$/.test(line) ? breathing : line));
}

async function waitForLights(expected) {
  for (let i = 0; i < 100 && lightsNow().join() !== expected.join(); ++i) await settle(20);
  assert.deepEqual(lightsNow(), expected);
}

module.exports = {
  agent, lit, allLit, lights, cameraOn, dark, breathing, start, end, next, plugUntil,
  waitForLights,
};
