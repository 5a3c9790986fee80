/// <reference types="node" />
import { EventEmitter } from 'node:events';

export type Button = 'camera' | 'microphone' | 'chat' | 'share-screen';

/** The value for `activate`; see `VelaActivation` in VelaAgent.h. */
export type Activation = 'active' | 'active-host-sets-lights' | 'deactivated' | 'suspended';

/** What a 'status' event reports: a state of the touchpad, or the activation that the host has set. */
export type Status =
  | 'normal'
  | 'temporarily-disabled'
  | 'disabled'
  | 'active-host-sets-lights'
  | 'deactivated'
  | 'suspended';

export type OpenResult = 'open' | 'not-found' | 'held-by-other';

export type LibraryErrorCode =
  | 'VELA_NOT_WINDOWS'
  | 'VELA_LIBRARY_MISSING'
  | 'VELA_LIBRARY_NOT_LOADED'
  | 'VELA_EXPORT_MISSING';

/** VelaAgent.dll could not be used; the message names the file and what is wrong. */
export class VelaLibraryError extends Error {
  readonly code: LibraryErrorCode;
}

export interface VelaAgentEvents {
  /** A button was pressed; `light` is true when its light was off before. There is no release. */
  press: [button: Button, light: boolean];
  status: [status: Status];
}

/**
 * The one touchpad session of a DLL. Calls that reach the device, the disk or another thread are
 * promises and run one after the other, in the order asked for; what only reads a flag is a plain call.
 * Events come on the JavaScript thread, in listeners of which every call is allowed.
 *
 * A boolean result is false where the library returns 0: without a session, or when the device refused;
 * "VelaAgent.log" then has the reason. Wrong arguments throw a TypeError or RangeError.
 */
export class VelaAgent extends EventEmitter {
  private constructor();

  /** The agent of the DLL at this full path, the same one each time. */
  static load(path: string): VelaAgent;

  readonly path: string;
  readonly isOpen: boolean;

  /**
   * Writes "VelaAgent.log", in UTF-8, into this directory. It should be one that only the user can write to.
   * A relative one counts from the current directory. Throws an Error with the code
   * 'VELA_LOG_DIRECTORY_MISSING' when it does not exist.
   */
  startLog(directory: string): Promise<void>;
  /** Resolves when every line is in the file. */
  stopLog(): Promise<void>;

  /**
   * Whether a touchpad is attached, or another user's process has one open. While this agent is open: false
   * once its touchpad is unplugged, when that is detachable; true for any other. Every call costs memory
   * that is not given back: make one when a device arrives, never on a timer.
   */
  isPresent(): Promise<boolean>;
  /** 'open' while it is open already, also when the touchpad was unplugged meanwhile: close first. */
  open(): Promise<OpenResult>;
  /** Darkens the lights and closes the touchpad; may take as long as a write in flight, 30 seconds. */
  close(): Promise<boolean>;

  enableFeature(on: boolean): Promise<boolean>;
  readonly isFeatureEnabled: boolean;
  activate(activation: Activation): Promise<boolean>;
  readonly isActivated: boolean;

  enableButton(button: Button, on: boolean): Promise<boolean>;
  isButtonEnabled(button: Button): boolean;
  setButtonVisible(button: Button, on: boolean): Promise<boolean>;
  setButtonLight(button: Button, on: boolean): Promise<boolean>;
  /** Only the chat button breathes, once it is allowed to. */
  setButtonBreathing(button: Button, on: boolean): Promise<boolean>;
  enableChatBreathing(on: boolean): Promise<boolean>;
  readonly isChatBreathingEnabled: boolean;

  /** 0 (dark) to 255. */
  setBrightness(level: number): Promise<void>;
  readonly brightness: number;

  /** mode 0: off; 1: the longest time between two taps, in the device's units, 0 to 65535. */
  setClickMode(mode: number, value: number): Promise<boolean>;
  isClickModeOn(): Promise<boolean>;
  /** The state comes as a 'status' event. */
  requestStatus(): Promise<boolean>;
  isDetachable(): Promise<boolean>;
  readonly supportsBidirectionalSwipe: boolean;

  isHapticPresent(): Promise<boolean>;
  openHaptic(): Promise<boolean>;
  closeHaptic(): Promise<boolean>;
  /** In the device's own units, mostly 0 to 100; 0 on any failure. */
  getHapticLevel(): Promise<number>;
  setHapticLevel(level: number): Promise<boolean>;

  on<Name extends keyof VelaAgentEvents>(
    name: Name,
    listener: (...args: VelaAgentEvents[Name]) => void,
  ): this;
  once<Name extends keyof VelaAgentEvents>(
    name: Name,
    listener: (...args: VelaAgentEvents[Name]) => void,
  ): this;
  off<Name extends keyof VelaAgentEvents>(
    name: Name,
    listener: (...args: VelaAgentEvents[Name]) => void,
  ): this;
}
