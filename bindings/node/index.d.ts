/// <reference types="node" />
import { EventEmitter } from 'node:events';

export type Button = 'camera' | 'microphone' | 'chat' | 'share-screen';

/** The value for `activate`; see `VelaActivation` in VelaAgent.h. */
export type Activation = 'active' | 'active-host-sets-lights' | 'deactivated' | 'suspended';

/** The value of a 'status' event: a state of the touchpad, or the activation that the host has set. */
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

/** What the host wants of a button; see `enableButton`, `setButtonVisible` and `setButtonLight`. */
export interface ButtonSettings {
  enabled: boolean;
  visible: boolean;
  light: boolean;
}

/**
 * What the host wants of the touchpad; at first what a session begins with: 'deactivated', brightness 3, all
 * else false. The click mode is not among it, as the device keeps that itself.
 */
export interface Settings {
  activation: Activation;
  feature: boolean;
  brightness: number;
  chatBreathingEnabled: boolean;
  chatBreathing: boolean;
  buttons: Record<Button, ButtonSettings>;
}

/** Some of the settings; the others stay as they are. */
export type SettingsChange = Partial<Omit<Settings, 'buttons'>> & {
  buttons?: Partial<Record<Button, Partial<ButtonSettings>>>;
};

export interface WatchEvents extends VelaAgentEvents {
  /** The touchpad is open and shows the settings. */
  found: [];
  /** It was open and is gone. */
  lost: [];
  /** Another program has it open. */
  'held-by-other': [];
}

/**
 * The touchpad as the host wants it, until `close`: opened when it arrives, closed when it leaves, set again
 * after every arrival and resume from sleep. It keeps the process running, also without a touchpad.
 */
export interface Watch extends EventEmitter {
  /** A copy of the settings, with what presses and the touchpad have changed. */
  readonly settings: Settings;
  readonly isOpen: boolean;
  /**
   * False where the system does not notify of devices (before Windows 8). The host then calls `refresh` when a
   * device arrived or left, and after a resume.
   */
  readonly isNotified: boolean;

  /**
   * Resolves when the touchpad, if there is one, has the settings. Throws at once, and changes nothing, when a
   * setting is wrong.
   */
  change(change: SettingsChange): Promise<void>;
  /** Closes the touchpad, opens it and sets everything again; without one, looks for it. */
  refresh(): Promise<void>;
  /** Darkens and closes the touchpad, and ends the notifications. */
  close(): Promise<void>;

  on<Name extends keyof WatchEvents>(name: Name, listener: (...args: WatchEvents[Name]) => void): this;
  once<Name extends keyof WatchEvents>(name: Name, listener: (...args: WatchEvents[Name]) => void): this;
  off<Name extends keyof WatchEvents>(name: Name, listener: (...args: WatchEvents[Name]) => void): this;
}

/**
 * The one touchpad session of a DLL. Calls that reach the device, the disk or another thread return
 * promises and run one after the other, in the order of the calls; those that only read a flag return it.
 * Listeners run on the JavaScript thread and may make every call.
 *
 * A boolean result is false where the library returns 0: without a session, or when the device failed;
 * "VelaAgent.log" then has the reason. Wrong arguments throw a TypeError or RangeError.
 */
export class VelaAgent extends EventEmitter {
  private constructor();

  /** Returns the agent of the DLL at this full path, the same one each time. */
  static load(path: string): VelaAgent;

  readonly path: string;
  readonly isOpen: boolean;

  /**
   * Writes "VelaAgent.log", in UTF-8, into this directory. It should be one that only the user can write to.
   * A relative one is relative to the current directory. Throws an Error with the code
   * 'VELA_LOG_DIRECTORY_MISSING' when it does not exist.
   */
  startLog(directory: string): Promise<void>;
  /** Resolves when every line is in the file. */
  stopLog(): Promise<void>;

  /**
   * True when a touchpad is attached, or another user's process has one open. While this agent is open:
   * false after a detachable touchpad was unplugged; always true for any other. Every call uses memory
   * that is never freed: call it when a device arrives, not on a timer.
   */
  isPresent(): Promise<boolean>;
  /** 'open' also when already open, even if the touchpad was unplugged meanwhile: close first. */
  open(): Promise<OpenResult>;
  /** Turns the lights off and closes the touchpad; waits for a write in flight, up to 30 seconds. */
  close(): Promise<boolean>;

  /**
   * Watches the touchpad. Until the watch is closed the host leaves `open`, `close` and the setters alone. Throws
   * when the agent is open, or has a watch.
   */
  watch(settings?: SettingsChange): Watch;

  enableFeature(on: boolean): Promise<boolean>;
  readonly isFeatureEnabled: boolean;
  activate(activation: Activation): Promise<boolean>;
  readonly isActivated: boolean;

  enableButton(button: Button, on: boolean): Promise<boolean>;
  isButtonEnabled(button: Button): boolean;
  setButtonVisible(button: Button, on: boolean): Promise<boolean>;
  setButtonLight(button: Button, on: boolean): Promise<boolean>;
  /** Only the chat button breathes, and only after enableChatBreathing(true). */
  setButtonBreathing(button: Button, on: boolean): Promise<boolean>;
  enableChatBreathing(on: boolean): Promise<boolean>;
  readonly isChatBreathingEnabled: boolean;

  /** 0 (dark) to 255. */
  setBrightness(level: number): Promise<void>;
  readonly brightness: number;

  /** mode 0: off; 1: the longest time between two taps, in the device's units, 0 to 65535. */
  setClickMode(mode: number, value: number): Promise<boolean>;
  isClickModeOn(): Promise<boolean>;
  /** A 'status' event reports the state. */
  requestStatus(): Promise<boolean>;
  isDetachable(): Promise<boolean>;
  readonly supportsBidirectionalSwipe: boolean;

  isHapticPresent(): Promise<boolean>;
  openHaptic(): Promise<boolean>;
  closeHaptic(): Promise<boolean>;
  /** The level in the device's own units, mostly 0 to 100; 0 on any failure. */
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
