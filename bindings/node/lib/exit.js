'use strict';
// Closes a session that is still open when the process exits.
//
// The JavaScript thread cannot call UnInit itself then: UnInit waits for the library's reader thread, which
// may wait with a press for the JavaScript thread. So a separate thread calls it, and the wait for that
// thread has a limit; a process that must not exit through the C++ runtime (see convention 7 of VelaAgent.h)
// terminates itself.

const kLimitMilliseconds = 3000;

function system() {
  const koffi = require('koffi');
  const kernel = koffi.load('kernel32.dll');
  return {
    GetModuleHandleW: kernel.func('void *GetModuleHandleW(str16 name)'),
    GetProcAddress: kernel.func('void *GetProcAddress(void *module, str name)'),
    CreateThread: kernel.func(
      'void *CreateThread(void *security, size_t stack, void *start, void *argument, uint32_t flags, void *id)',
    ),
    WaitForSingleObject: kernel.func('uint32_t WaitForSingleObject(void *handle, uint32_t milliseconds)'),
    GetCurrentProcess: kernel.func('void *GetCurrentProcess()'),
    TerminateProcess: kernel.func('int32_t TerminateProcess(void *process, uint32_t exitCode)'),
  };
}

class ExitGuard {
  #library;
  #windows;
  #isOpen = false;
  #hasThread = false;

  constructor(library) {
    this.#library = library;
  }

  opened() {
    this.#isOpen = true;
    if (this.#windows) return;
    this.#windows = system();
    process.on('exit', (code) => this.#exit(code));
  }

  closed() {
    this.#isOpen = false;
  }

  // UnInit does not end the heartbeat thread of a detachable touchpad.
  leavesAThread() {
    this.#hasThread = true;
  }

  #exit(code) {
    const isClosed = !this.#isOpen || this.#close();
    if (isClosed && !this.#hasThread) return;
    this.#windows.TerminateProcess(this.#windows.GetCurrentProcess(), code);
  }

  #close() {
    this.#library.SetVelaButtonPressCallback(null);
    this.#library.SetVelaStatusChangeCallback(null);
    const module = this.#windows.GetModuleHandleW(this.#library.path);
    const unInit = this.#windows.GetProcAddress(module, 'UnInit');
    const thread = this.#windows.CreateThread(null, 0, unInit, null, 0, null);
    return thread !== null && this.#windows.WaitForSingleObject(thread, kLimitMilliseconds) === 0;
  }
}

module.exports = { ExitGuard };
