import type { NameProblem } from "./uploadNames";

/** What is known of a file before it is read; the browser's File is one. */
export interface UploadSource {
  readonly name: string;
  readonly size: number;
}

export type UploadProblem =
  | NameProblem
  | "tooLarge"
  | "unreadable"
  | "unreachable"
  | "refused"
  | "failed"
  | "notListed";

export interface UploadItem {
  readonly id: number;
  /** Under which name it is stored, which a rename changes. */
  readonly name: string;
  readonly size: number;
  readonly state: "waiting" | "sending" | "done" | "skipped" | "cancelled" | "failed";
  /** From 0 to 1. */
  readonly progress: number;
  readonly problem?: UploadProblem;
  /** What the robot said. */
  readonly message?: string;
}

export type SendOutcome =
  | { readonly state: "answer"; readonly value: unknown }
  | { readonly state: "refused" | "unreachable" | "cancelled" };

export type OverwriteDecision = "replace" | "rename" | "skip";

export interface UploadDeps<S extends UploadSource> {
  /** The names of the files on the robot, undefined where they can't be read. */
  listNames(): Promise<ReadonlySet<string> | undefined>;
  /** The content in Base64, undefined where the file can't be read. */
  readBase64(source: S): Promise<string | undefined>;
  send(
    upload: { name: string; size: number; base64: string },
    onProgress: (progress: number) => void,
    abort: AbortSignal,
  ): Promise<SendOutcome>;
  /** Undefined where the question was dismissed: then nothing is replaced. */
  askOverwrite(
    name: string,
    remaining: number,
  ): Promise<{ decision: OverwriteDecision; forAll: boolean } | undefined>;
}
