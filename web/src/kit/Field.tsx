import { type ComponentChildren, createContext } from "preact";
import { useContext, useId } from "preact/hooks";

interface FieldLinks {
  id: string;
  describedBy: string | undefined;
  invalid: boolean;
}

const FieldContext = createContext<FieldLinks | undefined>(undefined);

export interface FieldProps {
  label: ComponentChildren;
  hint?: ComponentChildren;
  error?: ComponentChildren;
  class?: string;
  /** One TextInput, Select or the like, which takes up the label, the hint and the error. */
  children: ComponentChildren;
}

export function Field({ label, hint, error, class: extra = "", children }: FieldProps) {
  const id = useId();
  const described = [hint ? `${id}h` : "", error ? `${id}e` : ""].filter(Boolean).join(" ");
  const links = { id, describedBy: described || undefined, invalid: Boolean(error) };
  return (
    <div class={`field ${extra}`}>
      <label for={id}>{label}</label>
      <FieldContext.Provider value={links}>{children}</FieldContext.Provider>
      {hint && (
        <p class="hint" id={`${id}h`}>
          {hint}
        </p>
      )}
      {error && (
        <p class="error" id={`${id}e`}>
          {error}
        </p>
      )}
    </div>
  );
}

/** What ties a control to the field around it. */
export function useFieldAttributes() {
  const links = useContext(FieldContext);
  return {
    ...(links && { id: links.id }),
    ...(links?.describedBy && { "aria-describedby": links.describedBy }),
    ...(links?.invalid && { "aria-invalid": true }),
  };
}
