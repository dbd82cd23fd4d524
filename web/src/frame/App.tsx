import { QuestionHost } from "../kit/QuestionHost";
import { ToastHost } from "../kit/ToastHost";
import * as texts from "../texts/frame";
import { LoginDialog } from "./LoginDialog";
import { NavBar } from "./NavBar";
import { Notices } from "./Notices";
import { PageView } from "./PageView";
import { ShortcutDialog } from "./ShortcutDialog";
import { TopBar } from "./TopBar";

export function App() {
  return (
    <>
      {/* No link: the hash is the page's address, and only the focus moves. */}
      <button
        type="button"
        class="button skip"
        onClick={() => document.querySelector<HTMLElement>("#content > h1")?.focus()}
      >
        {texts.skip}
      </button>
      <div class="frame">
        <TopBar />
        <Notices />
        <NavBar />
        <PageView />
      </div>
      <ToastHost />
      <QuestionHost />
      <LoginDialog />
      <ShortcutDialog />
    </>
  );
}
