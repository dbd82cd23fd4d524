import { onDrivingChange, pausePolling } from "./scheduler";

const channelName = "tessarad.driving";
const repeatMs = 1000;
const silenceMs = 2500;

export interface TabChannel {
  postMessage(message: unknown): void;
  onmessage: ((event: MessageEvent) => void) | null;
}

/**
 * All tabs of a browser share six connections to the robot. While one of them drives, the others
 * ask for nothing, so that no command has to wait for a free connection.
 */
export function shareDriving(
  reason: string,
  channel: TabChannel | undefined = openChannel(),
): void {
  if (channel === undefined) {
    return;
  }
  let repeat: ReturnType<typeof setInterval> | undefined;
  let silence: ReturnType<typeof setTimeout> | undefined;
  const resume = () => {
    clearTimeout(silence);
    pausePolling(undefined);
  };
  onDrivingChange((driving) => {
    clearInterval(repeat);
    channel.postMessage(driving);
    if (driving) {
      resume();
      repeat = setInterval(() => channel.postMessage(true), repeatMs);
    }
  });
  channel.onmessage = ({ data }) => {
    clearTimeout(silence);
    if (data === true) {
      pausePolling(reason);
      // A tab that was closed or crashed says no farewell.
      silence = setTimeout(resume, silenceMs);
    } else {
      resume();
    }
  };
}

function openChannel(): TabChannel | undefined {
  return typeof BroadcastChannel === "undefined" ? undefined : new BroadcastChannel(channelName);
}
