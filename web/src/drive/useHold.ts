import { useEffect, useRef } from "preact/hooks";
import { listen } from "./listen";

export interface HoldPlace {
  /** Pixels right of and below the middle of the element. */
  readonly right: number;
  readonly below: number;
}

/**
 * A pointer that is down on an element. Whatever may take the pointer away counts as letting go: a
 * stick that is stuck would be a robot that doesn't stop.
 */
export function useHold(moved: (place: HoldPlace) => void, released: () => void) {
  const pointer = useRef<number | undefined>(undefined);
  const middle = useRef({ x: 0, y: 0 });
  const release = () => {
    if (pointer.current !== undefined) {
      pointer.current = undefined;
      released();
    }
  };
  const latestRelease = useRef(release);
  latestRelease.current = release;

  useEffect(() => {
    const letGo = () => latestRelease.current();
    const stop = listen(
      letGo,
      [window, "blur", "resize", "orientationchange", "pagehide"],
      [document, "visibilitychange"],
    );
    return () => {
      stop();
      letGo();
    };
  }, []);

  const follow = (event: PointerEvent) => {
    moved({ right: event.clientX - middle.current.x, below: event.clientY - middle.current.y });
  };
  const releaseOwn = (event: PointerEvent) => {
    if (event.pointerId === pointer.current) {
      release();
    }
  };
  return {
    onPointerDown(event: PointerEvent) {
      if (pointer.current !== undefined || event.button !== 0) {
        return;
      }
      event.preventDefault();
      const element = event.currentTarget as HTMLElement;
      element.setPointerCapture(event.pointerId);
      pointer.current = event.pointerId;
      // Of now: where the page moves under the hand later on, the robot must not swerve.
      const box = element.getBoundingClientRect();
      middle.current = { x: box.left + box.width / 2, y: box.top + box.height / 2 };
      follow(event);
    },
    onPointerMove(event: PointerEvent) {
      if (event.pointerId === pointer.current) {
        follow(event);
      }
    },
    onPointerUp: releaseOwn,
    onPointerCancel: releaseOwn,
    onLostPointerCapture: releaseOwn,
    onContextMenu(event: Event) {
      event.preventDefault();
      release();
    },
  };
}
