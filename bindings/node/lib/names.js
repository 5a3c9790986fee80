'use strict';
// Names for the library's numbers, and checks of a host's arguments.

const buttons = { camera: 0, microphone: 1, chat: 2, 'share-screen': 3 };
const activations = {
  active: 0,
  'active-host-sets-lights': 1,
  deactivated: 4,
  suspended: 5,
};
// A status may also be the activation that the host has set; "active" and "normal" share a number.
const statuses = {
  normal: 0,
  'active-host-sets-lights': 1,
  'temporarily-disabled': 2,
  disabled: 3,
  deactivated: 4,
  suspended: 5,
};
const initResults = { open: 1, 'not-found': 2, 'held-by-other': 3 };

function nameOf(table, value) {
  return Object.keys(table).find((name) => table[name] === value) ?? String(value);
}

function valueOf(table, name, what) {
  if (!Object.hasOwn(table, name)) {
    throw new TypeError(`no such ${what}: ${String(name)} (${Object.keys(table).join(', ')})`);
  }
  return table[name];
}

function integer(value, maximum, what) {
  if (!Number.isInteger(value) || value < 0 || value > maximum) {
    throw new RangeError(`the ${what} has to be a whole number from 0 to ${maximum}`);
  }
  return value;
}

function flag(on) {
  if (typeof on !== 'boolean') throw new TypeError('expected true or false');
  return on ? 1 : 0;
}

module.exports = { buttons, activations, statuses, initResults, nameOf, valueOf, integer, flag };
