// This file is compiled, never run: the declarations accept a host's code and reject mistakes.
import { VelaAgent, VelaLibraryError, Watch, Button, Status } from '..';

export async function host(path: string): Promise<void> {
  const agent: VelaAgent = VelaAgent.load(path);
  agent.on('press', (button: Button, light: boolean) => console.log(button, light));
  agent.once('status', (status: Status) => console.log(status));
  const result: 'open' | 'not-found' | 'held-by-other' = await agent.open();
  if (result !== 'open') return;
  const done: boolean = await agent.setButtonLight('camera', true);
  const level: number = agent.brightness;
  console.log(done, level, agent.isActivated);
  await agent.close();

  const watch: Watch = agent.watch({ activation: 'active', buttons: { chat: { visible: true } } });
  watch.on('found', () => console.log(watch.settings.buttons.chat.light, watch.isNotified));
  watch.once('press', (button: Button, light: boolean) => console.log(button, light));
  await watch.change({ brightness: 20 });
  await watch.refresh();
  await watch.close();

  // @ts-expect-error: no such setting
  await watch.change({ volume: 3 });
  // @ts-expect-error: no such button
  await agent.setButtonLight('speaker', true);
  // @ts-expect-error: no such activation
  await agent.activate('on');
  // @ts-expect-error: no such event
  agent.on('release', () => {});
  // @ts-expect-error: made by load only
  new VelaAgent();
}

export function reason(error: VelaLibraryError): string {
  return error.code === 'VELA_LIBRARY_MISSING' ? 'install it' : error.message;
}
