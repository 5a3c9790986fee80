'use strict';
// Tests the package in Node for Windows, with VelaAgent.dll and the virtual touchpad.
require('./loading.js');
require('./session.js');
require('./watch.js');
require('./notifiedWatch.js');
require('./heldTouchpad.js');
require('./listeners.js');
require('./exiting.js');
