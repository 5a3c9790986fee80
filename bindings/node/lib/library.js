'use strict';
// Loads VelaAgent.dll from a full path and declares its exports, each once.
const fs = require('node:fs');
const path = require('node:path');

class VelaLibraryError extends Error {
  constructor(code, message, cause) {
    super(message, cause && { cause });
    this.name = 'VelaLibraryError';
    this.code = code;
  }
}

const kExports = [
  'void InitLogger(str16 directory)',
  'void UnInitLogger()',
  'int32_t Init()',
  'int32_t UnInit()',
  'int32_t IsVelaPresent()',
  'void SetVelaButtonPressCallback(VelaButtonPressCallback *callback)',
  'void SetVelaStatusChangeCallback(VelaStatusChangeCallback *callback)',
  'int32_t EnableFeature(int32_t enable)',
  'int32_t IsFeatureEnabled()',
  'int32_t Activate(uint32_t activation)',
  'int32_t IsActivated()',
  'int32_t EnableSingleButton(uint32_t button, int32_t enable)',
  'int32_t IsSingleButtonEnabled(uint32_t button)',
  'int32_t SetButtonVisible(uint32_t button, int32_t visible)',
  'int32_t SetButtonLight(uint32_t button, int32_t on)',
  'int32_t EnableChatBreathing(int32_t enable)',
  'int32_t IsChatBreathingEnabled()',
  'int32_t SetButtonBreathing(uint32_t button, int32_t on)',
  'void SetVelaBrightness(uint32_t level)',
  'uint32_t GetVelaBrightness()',
  'int32_t SetClickMode(uint32_t mode, uint16_t value)',
  'uint32_t GetClickMode()',
  'int32_t UpdateVelaState()',
  'int32_t IsDetachable()',
  'int32_t IsSupportBiDirectionSwipe()',
  'int32_t IsHapticTPPresent()',
  'int32_t InitHapticTP()',
  'int32_t UnInitHapticTP()',
  'int32_t SetHapticTPIntensityLevel(uint32_t level)',
  'uint32_t GetHapticTPIntensityLevel()',
];

const libraries = new Map(); // by path

// koffi's callback types, which it keeps for the whole process.
let callbackTypes;
function callbacks(koffi) {
  callbackTypes ??= {
    press: koffi.proto('void VelaButtonPressCallback(uint32_t button, uint32_t newLight)'),
    status: koffi.proto('void VelaStatusChangeCallback(uint32_t status)'),
  };
  return callbackTypes;
}

function load(file) {
  if (process.platform !== 'win32') {
    throw new VelaLibraryError('VELA_NOT_WINDOWS', 'VelaAgent.dll runs on Windows only');
  }
  if (!fs.existsSync(file)) {
    throw new VelaLibraryError('VELA_LIBRARY_MISSING', `there is no file ${file}`);
  }
  const koffi = require('koffi');
  let handle;
  try {
    handle = koffi.load(file);
  } catch (error) {
    throw new VelaLibraryError('VELA_LIBRARY_NOT_LOADED', `cannot load ${file}: ${error.message}`, error);
  }
  const { press, status } = callbacks(koffi);
  const library = {
    path: file,
    pressCallback: (listener) => koffi.register(listener, koffi.pointer(press)),
    statusCallback: (listener) => koffi.register(listener, koffi.pointer(status)),
  };
  for (const declaration of kExports) {
    const name = declaration.match(/(\w+)\(/)[1];
    try {
      library[name] = handle.func(declaration);
    } catch (error) {
      throw new VelaLibraryError('VELA_EXPORT_MISSING', `${file} does not export ${name}`, error);
    }
  }
  return library;
}

/** Returns the declared exports of the DLL at this full path, so that no search finds another file. */
function loadLibrary(file) {
  if (typeof file !== 'string' || !path.isAbsolute(file)) {
    throw new TypeError('the path of VelaAgent.dll has to be a full one');
  }
  const normal = path.normalize(file);
  const key = process.platform === 'win32' ? normal.toLowerCase() : normal;
  if (!libraries.has(key)) libraries.set(key, load(normal));
  return libraries.get(key);
}

module.exports = { loadLibrary, VelaLibraryError };
