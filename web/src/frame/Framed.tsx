import * as texts from "../texts/frame";

/** Shown instead of the page where another page has taken it into a frame. */
export function Framed() {
  return (
    <p class="framed">
      {texts.framed}{" "}
      <a href={location.href} target="_blank" rel="noopener">
        {texts.framedLink}
      </a>
    </p>
  );
}
