import { addressOf } from "../data/requests";
import type { SendOutcome } from "./uploadItem";
import { base64Of, uploadBody } from "./uploadNames";

// A body that has not moved for so long has lost its way.
const stalledMs = 30_000;

/** By XMLHttpRequest, since nothing else tells how much of a body has left. */
export function sendUpload(
  upload: { name: string; size: number; base64: string },
  onProgress: (progress: number) => void,
  abort: AbortSignal,
): Promise<SendOutcome> {
  return new Promise((resolve) => {
    if (abort.aborted) {
      resolve({ state: "cancelled" });
      return;
    }
    const request = new XMLHttpRequest();
    let timer: ReturnType<typeof setTimeout> | undefined;
    const end = (outcome: SendOutcome) => {
      clearTimeout(timer);
      abort.removeEventListener("abort", onAbort);
      resolve(outcome);
    };
    const onAbort = () => {
      end({ state: "cancelled" });
      request.abort();
    };
    const moved = () => {
      clearTimeout(timer);
      timer = setTimeout(() => {
        end({ state: "unreachable" });
        request.abort();
      }, stalledMs);
    };
    request.upload.onprogress = (event) => {
      moved();
      onProgress(event.total > 0 ? event.loaded / event.total : 0);
    };
    request.onload = () =>
      end(
        request.status === 200
          ? { state: "answer", value: parsed(request.responseText) }
          : { state: "refused" },
      );
    request.onerror = () => end({ state: "unreachable" });
    request.open("POST", addressOf("/data/uploadProgram"));
    abort.addEventListener("abort", onAbort);
    moved();
    request.send(uploadBody(upload.name, upload.size, upload.base64));
  });
}

export function readBase64(file: File): Promise<string | undefined> {
  return new Promise((resolve) => {
    const reader = new FileReader();
    reader.onload = () => resolve(base64Of(String(reader.result)));
    reader.onerror = () => resolve(undefined);
    reader.readAsDataURL(file);
  });
}

function parsed(text: string): unknown {
  try {
    return JSON.parse(text);
  } catch {
    return undefined;
  }
}
