import { type ReadonlySignal, signal } from "@preact/signals";
import type { ComponentChildren } from "preact";
import * as kit from "../texts/kit";

export interface Choice<T> {
  label: string;
  value: T;
  kind?: "primary" | "plain" | "danger";
}

export interface Question {
  readonly number: number;
  readonly title: string;
  readonly body: ComponentChildren;
  readonly choices: readonly Choice<unknown>[];
  readonly answer: (value: unknown) => void;
}

const asked = signal<readonly Question[]>([]);
let count = 0;

/** The questions that wait for an answer; the first one is shown. */
export const questions: ReadonlySignal<readonly Question[]> = asked;

/** Asks in a dialog. Closing it without a choice gives undefined. */
export function choose<T>(wish: {
  title: string;
  body?: ComponentChildren;
  choices: readonly Choice<T>[];
}): Promise<T | undefined> {
  count += 1;
  const number = count;
  return new Promise((resolve) => {
    const answer = (value: unknown) => {
      asked.value = asked.value.filter((question) => question.number !== number);
      resolve(value as T | undefined);
    };
    const { title, body, choices } = wish;
    asked.value = [...asked.value, { number, title, body, choices, answer }];
  });
}

export async function confirm(wish: {
  title: string;
  body?: ComponentChildren;
  action: string;
  danger?: boolean;
}): Promise<boolean> {
  const choices = [
    { label: kit.cancel, value: false },
    { label: wish.action, value: true, kind: wish.danger ? "danger" : "primary" },
  ] as const;
  return (await choose<boolean>({ title: wish.title, body: wish.body, choices })) ?? false;
}
