import { useState } from "preact/hooks";
import { Button } from "../kit/Button";
import { TextInput } from "../kit/TextInput";
import * as texts from "../texts/editing";

export interface SecretInputProps {
  name: string;
  value: string;
  disabled?: boolean;
  onInput: (value: string) => void;
}

/** Shows what is in it only when asked to, and no browser offers to keep it. */
export function SecretInput({ name, ...rest }: SecretInputProps) {
  const [shown, setShown] = useState(false);
  return (
    <>
      <TextInput {...rest} type={shown ? "text" : "password"} autocomplete="new-password" />
      <Button
        icon="eye"
        aria-pressed={shown}
        aria-label={texts.show(name)}
        onClick={() => setShown(!shown)}
      />
    </>
  );
}
