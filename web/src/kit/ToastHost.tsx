import * as kit from "../texts/kit";
import { Icon } from "./Icon";
import { dismiss, toasts } from "./toasts";

const icons = { info: "info", success: "check", error: "error" } as const;

export function ToastHost() {
  return (
    <div class="toasts" role="status">
      {toasts.value.map((toast) => (
        <div key={toast.number} class={`toast ${toast.kind}`}>
          <Icon name={icons[toast.kind]} />
          <p>{toast.text}</p>
          <button
            type="button"
            class="button plain bare"
            aria-label={kit.close}
            onClick={() => dismiss(toast.number)}
          >
            <Icon name="close" />
          </button>
        </div>
      ))}
    </div>
  );
}
