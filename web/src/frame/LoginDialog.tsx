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

/** Roles that everybody has need no login. */
export function rolesToOffer(everybodys: Role | undefined): Role[] {
  return (["operator", "admin"] as const).filter((wish) => !reaches(everybodys, wish));
}

export function LoginDialog() {
  return loginRequest.value === undefined ? null : <OpenLoginDialog />;
}

function OpenLoginDialog() {
  const offered = rolesToOffer(defaultRole.value);
  const wish = useSignal<Role>(offered[0] ?? "admin");
  const password = useSignal("");
  const problem = useSignal<"wrong" | "unreachable" | undefined>(undefined);
  const busy = useSignal(false);
  const form = useRef<HTMLFormElement>(null);
  const now = role.value;
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
    await logout();
    toast(texts.loggedOut);
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
      {loginRequest.value?.reason && <p>{loginRequest.value.reason}</p>}
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
