'use strict';
// A touchpad that another program has. Such programs do not keep each other out on Wine, so the agent is
// replaced where it opens the touchpad.
const assert = require('node:assert/strict');
const path = require('node:path');
const { after, afterEach, before, describe, it } = require('node:test');
const { setTimeout: settle } = require('node:timers/promises');
const { VelaAgent } = require('..');
const notifications = require('./notifications');
const touchpad = require('./touchpad');
const { agent, end, lights, next, plugUntil, start, waitForLights } = require('./watching');

// Lets the agent fail to open the touchpad. Returns the record of its calls.
function hold(test) {
  const { mock } = test.mock.method(agent, 'open', async () => 'held-by-other');
  return mock;
}

// Waits for two tries more: the first one's result has been handled when the second one begins.
async function waitForTries(opening) {
  const enough = opening.callCount() + 2;
  for (let i = 0; i < 500 && opening.callCount() < enough; ++i) await settle(20);
  assert.ok(opening.callCount() >= enough);
}

it('the result of the library that says so has a name', async () => {
  const held = VelaAgent.load(path.join(process.env.VELA_BIN, 'velactl_stand_in.dll'));
  assert.equal(await held.open(), 'held-by-other');
  assert.equal(held.isOpen, false);
});

describe('a watch of a touchpad that another program has', () => {
  before(notifications.useStandIn);
  after(notifications.useSystem);
  afterEach(end);

  it('says so once for each row of tries: at its start, after an arrival and at a refresh', async (test) => {
    const opening = hold(test);
    const watch = start();
    await next('held-by-other');
    await waitForTries(opening);
    assert.deepEqual(watch.seen, ['held-by-other']);
    await plugUntil('held-by-other', touchpad.plugHaptic, () => touchpad.unplug('--name', 'haptic'));
    await waitForTries(opening);
    assert.deepEqual(watch.seen, Array(2).fill('held-by-other'));
    await watch.refresh();
    await waitForTries(opening);
    assert.deepEqual(watch.seen, Array(3).fill('held-by-other'));
  });

  it('says so when a later try finds it', async (test) => {
    const opening = hold(test);
    opening.mockImplementationOnce(async () => 'not-found');
    const watch = start();
    await next('held-by-other');
    await waitForTries(opening);
    assert.deepEqual(watch.seen, ['held-by-other']);
  });

  it('says that it is lost when another program takes it, and found when that lets it go', async (test) => {
    touchpad.plug();
    const watch = start();
    await waitForLights(lights);
    const opening = hold(test);
    await watch.refresh();
    await waitForTries(opening);
    assert.deepEqual(watch.seen, ['found', 'lost', 'held-by-other']);
    const found = next('found');
    opening.restore();
    await found;
    await waitForLights(lights);
  });
});
