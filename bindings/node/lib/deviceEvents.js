'use strict';
// Notifications of HID devices that arrive and leave, and of the machine's resume from sleep. They come from
// the configuration manager (Windows 8), as a window would need a thread with a message loop. The system's
// thread waits while the JavaScript thread handles one.
const path = require('node:path');

const kFilterSize = 416; // CM_NOTIFY_FILTER: four numbers, then a union
const kClassOffset = 16;
// {4D1E55B2-F16F-11CF-88CB-001111000030}, the class of all HID interfaces
const kHidInterfaces = Buffer.from('b2551e4d6ff1cf1188cb001111000030', 'hex');
const kArrival = 0; // CM_NOTIFY_ACTION_DEVICEINTERFACEARRIVAL
const kRemoval = 1;
const kByCallback = 2; // DEVICE_NOTIFY_CALLBACK
const kResume = 18; // PBT_APMRESUMEAUTOMATIC

// koffi's types, which it keeps for the whole process.
let types;
function callbackTypes(koffi) {
  types ??= {
    device: koffi.pointer(
      koffi.proto('uint32_t VelaDeviceCallback(void *from, void *context, uint32_t action, void *data, uint32_t size)'),
    ),
    power: koffi.pointer(koffi.proto('uint32_t VelaPowerCallback(void *context, uint32_t what, void *setting)')),
  };
  return types;
}

// Returns the declared functions of a system library, or nothing when it lacks one.
function system(koffi, name, declarations) {
  try {
    const library = koffi.load(path.join(process.env.SystemRoot, 'System32', name));
    return declarations.map((declaration) => library.func(declaration));
  } catch {
    return undefined;
  }
}

// One registration with the system, and the callback that belongs to it.
class Registration {
  #koffi;
  #callback;
  #handle;
  #unregister;

  /** `register` receives the callback and a place for the handle; its result is 0 when it succeeds. */
  constructor(koffi, listener, type, register, unregister) {
    this.#koffi = koffi;
    this.#callback = koffi.register(listener, type);
    const handle = [null];
    if (register(this.#callback, handle) === 0) this.#handle = handle[0];
    this.#unregister = unregister;
  }

  get isOn() {
    return this.#handle !== undefined;
  }

  // Waits on another thread, as a notification under way waits for this one.
  async end() {
    if (this.isOn) await new Promise((resolve) => this.#unregister.async(this.#handle, resolve));
    this.#koffi.unregister(this.#callback);
  }
}

class DeviceEvents {
  #registrations = [];
  #recipient = Buffer.alloc(16); // DEVICE_NOTIFY_SUBSCRIBE_PARAMETERS, which the system may use later

  /** The handlers are called on the JavaScript thread: onArrival, onRemoval (of any HID device), onResume. */
  constructor(handlers) {
    const koffi = require('koffi');
    this.#addDevices(koffi, handlers);
    if (this.isOn) this.#addPower(koffi, handlers);
  }

  /** False where the system has no such notifications. */
  get isOn() {
    return this.#registrations.length > 0;
  }

  async end() {
    await Promise.all(this.#registrations.map((registration) => registration.end()));
    this.#registrations = [];
  }

  #addDevices(koffi, handlers) {
    const manager = system(koffi, 'cfgmgr32.dll', [
      'uint32_t CM_Register_Notification(void *filter, void *context, void *callback, _Out_ void **handle)',
      'uint32_t CM_Unregister_Notification(void *handle)',
    ]);
    if (!manager) return;
    const [register, unregister] = manager;
    const filter = Buffer.alloc(kFilterSize);
    filter.writeUInt32LE(kFilterSize);
    kHidInterfaces.copy(filter, kClassOffset);
    this.#add(
      koffi,
      (from, context, action) => {
        if (action === kArrival) handlers.onArrival();
        if (action === kRemoval) handlers.onRemoval();
        return 0;
      },
      callbackTypes(koffi).device,
      (callback, handle) => register(filter, null, callback, handle),
      unregister,
    );
  }

  // Without it the host refreshes after a resume.
  #addPower(koffi, handlers) {
    const power = system(koffi, 'powrprof.dll', [
      'uint32_t PowerRegisterSuspendResumeNotification(uint32_t flags, void *recipient, _Out_ void **handle)',
      'uint32_t PowerUnregisterSuspendResumeNotification(void *handle)',
    ]);
    if (!power) return;
    const [register, unregister] = power;
    this.#add(
      koffi,
      (context, what) => {
        if (what === kResume) handlers.onResume();
        return 0;
      },
      callbackTypes(koffi).power,
      (callback, handle) => {
        this.#recipient.writeBigUInt64LE(koffi.address(callback));
        return register(kByCallback, this.#recipient, handle);
      },
      unregister,
    );
  }

  #add(koffi, ...rest) {
    const registration = new Registration(koffi, ...rest);
    if (registration.isOn) this.#registrations.push(registration);
    else registration.end();
  }
}

module.exports = { DeviceEvents };
