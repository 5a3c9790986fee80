'use strict';
// On Windows' Node: the package against VelaAgent.dll and the virtual touchpad.
require('./loading.js');
require('./session.js');
require('./exiting.js');
