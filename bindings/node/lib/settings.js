'use strict';
// What a host wants of the touchpad, and how it is set on an open one.
const names = require('./names');

const kTests = {
  activation: (value) => names.valueOf(names.activations, value, 'activation'),
  feature: names.flag,
  brightness: (value) => names.integer(value, 255, 'brightness'),
  chatBreathingEnabled: names.flag,
  chatBreathing: names.flag,
  enabled: names.flag,
  visible: names.flag,
  light: names.flag,
};

/** Returns what a session begins with. */
function initialSettings() {
  const button = () => ({ enabled: false, visible: false, light: false });
  return {
    activation: 'deactivated',
    feature: false,
    brightness: 3,
    chatBreathingEnabled: false,
    chatBreathing: false,
    buttons: Object.fromEntries(Object.keys(names.buttons).map((name) => [name, button()])),
  };
}

// Returns `old` with the values that `change` names.
function changed(old, change) {
  const now = { ...old };
  for (const [name, value] of Object.entries(change)) {
    if (!Object.hasOwn(old, name)) throw new TypeError(`no such setting: ${name}`);
    if (typeof old[name] === 'object') {
      now[name] = changed(old[name], value);
    } else {
      kTests[name](value);
      now[name] = value;
    }
  }
  return now;
}

// Sets on the open agent what differs. `switching` makes the calls that report statuses themselves.
async function apply(agent, old, now, switching) {
  // A deactivation hides the buttons and ends the breathing, and what follows a suspension brings back the
  // buttons from before it: all of them are set again then.
  const activates = old.activation !== now.activation;
  if (activates) await switching(() => agent.activate(now.activation));
  if (old.brightness !== now.brightness) await agent.setBrightness(now.brightness);
  for (const [button, after] of Object.entries(now.buttons)) {
    const before = old.buttons[button];
    if (activates || before.enabled !== after.enabled) await agent.enableButton(button, after.enabled);
    if (activates || before.visible !== after.visible) await agent.setButtonVisible(button, after.visible);
    if (activates || before.light !== after.light) await agent.setButtonLight(button, after.light);
  }
  const breathes = activates || old.chatBreathingEnabled !== now.chatBreathingEnabled;
  if (breathes) await agent.enableChatBreathing(now.chatBreathingEnabled);
  const switches = old.feature !== now.feature;
  if (switches) await switching(() => agent.enableFeature(now.feature));
  // Switching the feature off ends the breathing, and only setting it stops the light.
  if (breathes || switches || old.chatBreathing !== now.chatBreathing) {
    await agent.setButtonBreathing('chat', now.chatBreathing);
  }
  // Writes the lights: the library leaves a change out that brings back its last report, but the touchpad may
  // show another one since, as after a disable.
  await agent.setButtonBreathing('camera', false);
}

// Sets on an agent that was just opened all that the host wants.
async function replay(agent, now, switching) {
  const dark = { ...now, feature: false, chatBreathing: false };
  await agent.setBrightness(now.brightness); // the library keeps it from session to session
  await apply(agent, initialSettings(), dark, switching);
  // The library also keeps the disabling gesture, which the touchpad has forgotten. Ends it, and requests the
  // state of a touchpad that has not.
  await switching(() => agent.enableFeature(false));
  await agent.requestStatus();
  await apply(agent, dark, now, switching);
}

module.exports = { initialSettings, changed, apply, replay };
