'use strict';
const { once } = require('node:events');
const path = require('node:path');
const { VelaAgent } = require('..');

async function watch(agent) {
  require('./notifications').useStandIn();
  const lit = { camera: { enabled: true, visible: true } };
  await once(agent.watch({ activation: 'active', feature: true, buttons: lit }), 'found');
  process.exit(7);
}

async function main(how) {
  const agent = VelaAgent.load(path.join(process.env.VELA_BIN, 'VelaAgent.dll'));
  if (how === 'watch') return watch(agent);
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
