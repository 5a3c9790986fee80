'use strict';
// Drives the virtual touchpad with its command-line tool.
const { spawnSync } = require('node:child_process');
const fs = require('node:fs');
const os = require('node:os');
const path = require('node:path');

const folder = fs.mkdtempSync(path.join(os.tmpdir(), 'vela-node-'));
const output = path.join(folder, 'output.txt');

function vtouchpad(...args) {
  const file = fs.openSync(output, 'w');
  const program = path.join(process.env.VELA_BIN, 'vtouchpad.exe');
  const { status } = spawnSync(program, args, { stdio: ['ignore', file, file] });
  fs.closeSync(file);
  const text = fs.readFileSync(output, 'utf8');
  if (status !== 0) throw new Error(`vtouchpad ${args.join(' ')}: ${text}`);
  return text;
}

module.exports = {
  folder,
  plug: (...options) => vtouchpad('plug', ...options),
  plugHaptic: () => vtouchpad('plug-haptic'),
  unplug: (...options) => vtouchpad('unplug', ...options),
  unplugAll: () => {
    for (const [, name] of vtouchpad('list').matchAll(/^([^\t]+)\t/gm)) vtouchpad('unplug', '--name', name);
  },
  press: (...events) => vtouchpad('press', ...events),
  // Returns lines such as "camera 0 3 active".
  lights: () => vtouchpad('lights').trim().split(/\r?\n/).map((line) => line.replaceAll('\t', ' ')),
};
