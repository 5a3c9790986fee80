'use strict';
const { once } = require('node:events');
const path = require('node:path');
const { VelaAgent } = require('..');

const settings = {
  activation: 'active',
  feature: true,
  buttons: { camera: { enabled: true, visible: true } },
};

async function watch(agent) {
  require('./notifications').useStandIn();
  await once(agent.watch(settings), 'found');
  process.exit(7);
}

// Nothing but the watch keeps the process running: there are no tries later, and the timer that closes the watch
// does not count. The exit code says whether the process was still running then.
async function watchUntilClosed(agent) {
  require('./notifications').useStandIn();
  const { setTimeout } = globalThis;
  globalThis.setTimeout = () => {};
  const watch = agent.watch(settings);
  await watch.refresh();
  process.exitCode = 3;
  setTimeout(async () => {
    await watch.close();
    process.exitCode = 7;
  }, 300).unref();
}

async function main(how) {
  const agent = VelaAgent.load(path.join(process.env.VELA_BIN, 'VelaAgent.dll'));
  if (how === 'watch') return watch(agent);
  if (how === 'close-watch') return watchUntilClosed(agent);
  if ((await agent.open()) !== 'open') process.exit(2);
  await agent.activate('active');
  await agent.enableFeature(true);
  await agent.enableButton('camera', true);
  await agent.setButtonVisible('camera', true);
  if (how === 'close') await agent.close();
  if (how === 'throw') throw new Error('as any host may');
  process.exit(7);
}

main(process.argv[2]);
