import { useSignal } from "@preact/signals";
import { useRef } from "preact/hooks";
import {
  closeLogin,
  defaultRole,
  login,
  loginRequest,
  logout,
  type Role,
  reaches,
  role,
} from "../data/session";
import { Button } from "../kit/Button";
import { Dialog } from "../kit/Dialog";
import { Field } from "../kit/Field";
import { Select } from "../kit/Select";
import { TextInput } from "../kit/TextInput";
import { toast } from "../kit/toasts";
import * as texts from "../texts/frame";
import { mayLeave } from "./guards";

/** Roles that everybody has need no login. */
export function rolesToOffer(everybodys: Role | undefined): Role[] {
  return (["operator", "admin"] as const).filter((wish) => !reaches(everybodys, wish));
}

/** The least role that serves and that one doesn't have yet. */
export function roleToSuggest(needed: Role, now: Role | undefined): Role {
  return needed === "admin" || reaches(now, "operator") ? "admin" : "operator";
}

export function LoginDialog() {
  const request = loginRequest.value;
  return request && <OpenLoginDialog reason={request.reason} needs={request.needs} />;
}

function OpenLoginDialog({ reason, needs }: { reason: string | undefined; needs: Role }) {
  const now = role.value;
  const offered = rolesToOffer(defaultRole.value);
  const wish = useSignal<Role>(roleToSuggest(needs, now));
  const password = useSignal("");
  const problem = useSignal<"wrong" | "unreachable" | undefined>(undefined);
  const busy = useSignal(false);
  const form = useRef<HTMLFormElement>(null);
  const isLoggedIn =
    now !== undefined && defaultRole.value !== undefined && now !== defaultRole.value;

  const submit = async () => {
    if (busy.value) {
      return;
    }
    busy.value = true;
    const result = await login(wish.value, password.value);
    busy.value = false;
    if (result === "ok") {
      closeLogin();
      toast(texts.welcome(texts.roleNames[wish.value]), { kind: "success" });
    } else {
      problem.value = result;
      form.current?.querySelector("input")?.focus();
    }
  };
  const leave = async () => {
    closeLogin();
    if (await mayLeave()) {
      await logout();
      toast(texts.loggedOut);
    }
  };
  const errors = { wrong: texts.loginWrong, unreachable: texts.loginUnreachable };

  return (
    <Dialog
      title={texts.loginTitle}
      onClose={closeLogin}
      actions={
        <>
          {isLoggedIn && <Button onClick={() => void leave()}>{texts.logOut}</Button>}
          {offered.length > 0 && (
            <Button kind="primary" busy={busy.value} onClick={() => form.current?.requestSubmit()}>
              {texts.logIn}
            </Button>
          )}
        </>
      }
    >
      {reason && <p>{reason}</p>}
      {now !== undefined && <p class="hint">{texts.loggedInAs(texts.roleNames[now])}</p>}
      {offered.length === 0 ? (
        <p>{texts.loginNeedless}</p>
      ) : (
        <form
          ref={form}
          class="login"
          onSubmit={(event) => {
            event.preventDefault();
            void submit();
          }}
        >
          <Field label={texts.loginRole}>
            <Select
              value={wish.value}
              options={offered.map((value) => ({ value, label: texts.roleNames[value] }))}
              onChange={(value) => {
                wish.value = value;
                problem.value = undefined;
              }}
            />
          </Field>
          <Field label={texts.loginPassword} error={problem.value && errors[problem.value]}>
            <TextInput
              type="password"
              autocomplete="current-password"
              autofocus
              value={password.value}
              onInput={(value) => {
                password.value = value;
              }}
            />
          </Field>
          <button type="submit" hidden />
        </form>
      )}
    </Dialog>
  );
}
