import { effect, type ReadonlySignal } from "@preact/signals";
import { useEffect, useRef } from "preact/hooks";
import { type CanvasTheme, canvasTheme } from "./themes";

export interface CanvasProps {
  /** Paints on an empty canvas, in CSS pixels. */
  paint: (
    context: CanvasRenderingContext2D,
    width: number,
    height: number,
    theme: CanvasTheme,
  ) => void;
  /** What the picture tells, for those who do not see it. */
  label: string;
  redrawOn: ReadonlySignal<unknown> | readonly ReadonlySignal<unknown>[];
  height?: number;
  class?: string;
}

/** A canvas as sharp as the screen, painted at most once a frame. */
export function Canvas({ paint, label, redrawOn, height, class: extra = "" }: CanvasProps) {
  const element = useRef<HTMLCanvasElement>(null);
  const latestPaint = useRef(paint);
  const request = useRef<() => void>(() => {});
  latestPaint.current = paint;

  useEffect(() => {
    const canvas = element.current;
    const context = canvas?.getContext("2d");
    if (!canvas || !context) {
      return undefined;
    }
    let frame = 0;
    const draw = () => {
      frame = 0;
      const { clientWidth, clientHeight } = canvas;
      const scale = globalThis.devicePixelRatio || 1;
      const [width, tall] = [Math.round(clientWidth * scale), Math.round(clientHeight * scale)];
      if (canvas.width !== width || canvas.height !== tall) {
        canvas.width = width;
        canvas.height = tall;
      }
      context.setTransform(scale, 0, 0, scale, 0, 0);
      context.clearRect(0, 0, clientWidth, clientHeight);
      latestPaint.current(context, clientWidth, clientHeight, canvasTheme.peek());
    };
    request.current = () => {
      frame ||= requestAnimationFrame(draw);
    };
    const observer = new ResizeObserver(() => request.current());
    observer.observe(canvas);
    const sources = Array.isArray(redrawOn) ? redrawOn : [redrawOn];
    const stop = effect(() => {
      for (const source of sources) {
        source.value;
      }
      canvasTheme.value;
      request.current();
    });
    return () => {
      stop();
      observer.disconnect();
      cancelAnimationFrame(frame);
    };
  }, []);
  useEffect(() => request.current());

  return (
    <canvas
      ref={element}
      class={`canvas ${extra}`}
      role="img"
      aria-label={label}
      {...(height === undefined ? {} : { style: { height: `${height}px` } })}
    />
  );
}
