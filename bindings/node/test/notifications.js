'use strict';
// Loads other libraries in place of those that notify of devices, which on Wine lack the functions.
const path = require('node:path');
const koffi = require('koffi');

const load = koffi.load;
const standIn = path.join(process.env.VELA_BIN, 'manager_stand_in.dll');

function notifyBy(library) {
  const places = { 'cfgmgr32.dll': library, 'powrprof.dll': library };
  koffi.load = (file) => load(places[path.basename(file)] ?? file);
}

module.exports = {
  // A library of the tests' own, which passes on what a window is notified of.
  useStandIn: () => notifyBy(standIn),
  // The machine resumes from sleep. Not posted to the window from here: that never returns on Wine 10.
  resume: () => load(standIn).func('void StandInResume()')(),
  // One without the functions, as on a Windows before 8.
  useNone: () => notifyBy(path.join(process.env.SystemRoot, 'System32', 'hid.dll')),
  useSystem: () => (koffi.load = load),
};
