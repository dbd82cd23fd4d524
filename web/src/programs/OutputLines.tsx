import { useLayoutEffect, useRef } from "preact/hooks";
import * as texts from "../texts/programs";
import type { OutputBlock } from "./outputView";

interface LinesProps {
  blocks: readonly OutputBlock[];
  follow: boolean;
  /** Scrolling up leaves off following, and scrolling down to the end takes it up again. */
  onFollow: (follow: boolean) => void;
}

const marks = { gap: texts.gap, start: texts.restart };

export function OutputLines({ blocks, follow, onFollow }: LinesProps) {
  const element = useRef<HTMLElement>(null);
  useLayoutEffect(() => {
    const pane = element.current;
    if (follow && pane !== null) {
      pane.scrollTop = pane.scrollHeight;
    }
  });
  return (
    <section
      ref={element}
      class="output"
      aria-label={texts.output}
      // biome-ignore lint/a11y/noNoninteractiveTabindex: what scrolls must be reached by keyboard.
      tabIndex={0}
      onScroll={({ currentTarget: pane }) =>
        onFollow(pane.scrollHeight - pane.scrollTop - pane.clientHeight < 4)
      }
    >
      {blocks.map((block) => (
        <pre key={block.id}>
          {block.parts.map((part) =>
            part.kind === "lines" ? part.text : <span class="mark">{marks[part.kind]}</span>,
          )}
        </pre>
      ))}
    </section>
  );
}
