import { effect, type ReadonlySignal, signal } from "@preact/signals";
import { canOperate } from "../data/session";
import { driveStop, stopDrive } from "../drive/stop";
import { toast } from "../kit/toasts";
import { stop } from "../programs/programActions";
import { fileNameOf, runningProgram } from "../programs/programList";
import { programs } from "../programs/resources";
import * as texts from "../texts/frame";

const offeredMs = 15_000;

const offered = signal<{ name: string; stop: () => void } | undefined>(undefined);
let timer: ReturnType<typeof setTimeout> | undefined;

/** The program that was running when the drive was stopped, offered for a while. */
export const programToStop: ReadonlySignal<{ name: string; stop: () => void } | undefined> =
  offered;

function withdraw(): void {
  clearTimeout(timer);
  offered.value = undefined;
}

export function stopAll(): void {
  if (canOperate.peek()) {
    stopDrive();
    void offerProgram();
  }
}

async function offerProgram(): Promise<void> {
  const outcome = await programs.refresh();
  const running =
    outcome.state === "answer" ? runningProgram(programs.value.peek() ?? []) : undefined;
  withdraw();
  if (running !== undefined) {
    offered.value = {
      name: fileNameOf(running),
      stop: () => {
        withdraw();
        void stop(running);
      },
    };
    timer = setTimeout(withdraw, offeredMs);
  }
}

/** A stop that was not acknowledged is said on every page. */
export function announceStops(): void {
  effect(() => {
    if (driveStop.value === "unconfirmed") {
      toast(texts.stopUnconfirmed, { kind: "error" });
    }
  });
}
