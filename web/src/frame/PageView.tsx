import { useEffect, useRef } from "preact/hooks";
import { reaches, role, sessionEnded } from "../data/session";
import { Empty } from "../kit/Empty";
import * as texts from "../texts/frame";
import { LockedPage } from "./LockedPage";
import { type Page, pages } from "./pages";
import { shownPath } from "./router";

export function PageView() {
  const heading = useRef<HTMLHeadingElement>(null);
  const page = pages.find((candidate) => candidate.path === shownPath.value);
  const title = page?.title ?? texts.unknownPage;
  const first = useRef(true);

  useEffect(() => {
    document.title = texts.pageTitle(title, location.hostname);
    if (!first.current) {
      // A reader of the page must notice that it is another one.
      heading.current?.focus({ preventScroll: true });
      scrollTo(0, 0);
    }
    first.current = false;
  }, [title]);

  return (
    <main id="content" class={`page page-${page?.path ?? "unknown"}`}>
      <h1 ref={heading} tabIndex={-1}>
        {title}
      </h1>
      {page === undefined ? (
        <Empty>
          <a href="#/overview">{texts.overviewLink}</a>
        </Empty>
      ) : (
        <PermittedPage key={page.path} page={page} />
      )}
    </main>
  );
}

/** A page that was open when the session ended stays as it is, out of sight, with what was typed. */
function PermittedPage({ page }: { page: Page }) {
  const wasPermitted = useRef(false);
  const isPermitted = page.needs === "guest" || reaches(role.value, page.needs);
  if (role.value === undefined && !isPermitted) {
    return <Empty>{texts.waiting}</Empty>;
  }
  const isKept = wasPermitted.current && sessionEnded.value;
  wasPermitted.current = isPermitted || isKept;
  const Content = page.component;
  return (
    <>
      {!isPermitted && <LockedPage page={page} />}
      {(isPermitted || isKept) && (
        <div hidden={!isPermitted}>
          <Content />
        </div>
      )}
    </>
  );
}
