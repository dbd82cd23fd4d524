import { Button } from "../kit/Button";
import { Chip, type Tone } from "../kit/Chip";
import { formatBytes } from "../kit/format";
import type { IconName } from "../kit/Icon";
import * as texts from "../texts/programs";
import type { UploadItem } from "./uploadItem";
import { isOpen } from "./uploadQueue";
import { uploads } from "./uploads";

const looks: Readonly<Record<UploadItem["state"], { tone: Tone; icon: IconName }>> = {
  waiting: { tone: "neutral", icon: "clock" },
  sending: { tone: "neutral", icon: "upload" },
  done: { tone: "ok", icon: "check" },
  skipped: { tone: "neutral", icon: "right" },
  cancelled: { tone: "warn", icon: "close" },
  failed: { tone: "bad", icon: "error" },
};

function remarkOf(item: UploadItem): string | undefined {
  if (item.problem !== undefined) {
    const told = item.problem === "failed" && item.message;
    return told
      ? `${texts.uploadProblems.failed} “${item.message}”`
      : texts.uploadProblems[item.problem];
  }
  return item.state === "cancelled" && item.progress === 1 ? texts.lateCancel : undefined;
}

function Item({ item }: { item: UploadItem }) {
  const remark = remarkOf(item);
  return (
    <li>
      <span class="name">
        {item.name} <span class="hint">{formatBytes(item.size)}</span>
      </span>
      <Chip {...looks[item.state]}>{texts.uploadStates[item.state]}</Chip>
      {isOpen(item) && (
        <Button
          class="bare"
          icon="close"
          aria-label={texts.of(texts.cancel, item.name)}
          onClick={() => uploads.cancel(item.id)}
        />
      )}
      {item.state === "sending" && (
        <progress max={1} value={item.progress} aria-label={texts.progress(item.name)} />
      )}
      {remark && <p class="error">{remark}</p>}
    </li>
  );
}

export function UploadList() {
  const items = uploads.items.value;
  if (items.length === 0) {
    return null;
  }
  return (
    <div>
      <ul class="uploads" aria-label={texts.uploads}>
        {items.map((item) => (
          <Item key={item.id} item={item} />
        ))}
      </ul>
      {!items.every(isOpen) && (
        <Button class="bare" onClick={() => uploads.clearFinished()}>
          {texts.clear}
        </Button>
      )}
    </div>
  );
}
