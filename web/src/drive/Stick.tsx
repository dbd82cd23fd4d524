import { useSignal } from "@preact/signals";
import { useEffect, useRef } from "preact/hooks";
import { Icon } from "../kit/Icon";
import * as texts from "../texts/drive";
import { drive } from "./drive";
import { knobPlace, stickDeflection } from "./stickMath";
import { useHold } from "./useHold";
import "./stick.css";

const middle = { right: 0, below: 0 };

export interface StickProps {
  /** The one for turning moves only to the sides. */
  kind: "move" | "turn";
}

export function Stick({ kind }: StickProps) {
  const element = useRef<HTMLDivElement>(null);
  const knob = useSignal(middle);
  const isTurn = kind === "turn";
  useEffect(() => () => drive.releaseInput(kind), [kind]);

  const handlers = useHold(
    ({ right, below }) => {
      const radius = (element.current?.clientWidth ?? 0) * 0.36;
      const tall = isTurn ? 0 : below;
      knob.value = knobPlace(right, tall, radius);
      const { ahead, left } = stickDeflection(right, tall, radius);
      drive.setInput(kind, {
        isHeld: true,
        deflection: isTurn ? [0, 0, left] : [ahead, left, 0],
      });
    },
    () => {
      knob.value = middle;
      drive.releaseInput(kind);
    },
  );
  const { right, below } = knob.value;
  return (
    <div
      ref={element}
      class={`stick ${kind} ${drive.model.value.state}`}
      role="img"
      aria-label={isTurn ? texts.turnStick : texts.stick}
      data-stick={kind}
      {...handlers}
    >
      {!isTurn && (
        <>
          <span class="mark ahead">
            <Icon name="up" />
            {texts.ahead}
          </span>
          <span class="mark back">
            <Icon name="down" />
          </span>
        </>
      )}
      <span class="mark left">
        <Icon name={isTurn ? "turnLeft" : "left"} />
      </span>
      <span class="mark right">
        <Icon name={isTurn ? "turnRight" : "right"} />
      </span>
      {isTurn && <span class="mark ahead">{texts.turn}</span>}
      <span class="knob" style={{ transform: `translate(${right}px, ${below}px)` }} />
    </div>
  );
}
