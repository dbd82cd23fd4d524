import { batch, computed, type ReadonlySignal, signal } from "@preact/signals";
import { field } from "./decode";
import { read, write } from "./requests";
import { asRole, type Role, reaches } from "./roles";
import { adoptSid, currentSid, newSid } from "./sid";

export type { Role } from "./roles";
export { reaches } from "./roles";

interface LoginRequest {
  readonly reason: string | undefined;
  /** The least role that serves. */
  readonly needs: Role;
}

const rolePath = "/data/userrole";

const known = signal<Role | undefined>(undefined);
const everybodys = signal<Role | undefined>(undefined);
const ended = signal(false);
const wanted = signal<LoginRequest | undefined>(undefined);

/** What this tab's session may do; undefined until the daemon has said so. */
export const role: ReadonlySignal<Role | undefined> = known;

/** What everybody may do without a login; undefined until known. */
export const defaultRole: ReadonlySignal<Role | undefined> = everybodys;

export const canOperate = computed(() => reaches(known.value, "operator"));
export const canAdminister = computed(() => reaches(known.value, "admin"));

/** True from the moment in which the daemon forgot the login until the next one. */
export const sessionEnded: ReadonlySignal<boolean> = ended;

/** The login dialog that is wanted, with the reason for it. */
export const loginRequest: ReadonlySignal<LoginRequest | undefined> = wanted;

/** For who goes on without a login. */
export function acknowledgeEnd(): void {
  ended.value = false;
}

export function openLogin(reason?: string, needs: Role = "operator"): void {
  wanted.value = { reason, needs };
}

export function closeLogin(): void {
  wanted.value = undefined;
}

function noteRole(next: Role, byIntent: boolean): void {
  const before = known.value;
  batch(() => {
    if (byIntent) {
      ended.value = false;
    } else if (before !== undefined && before !== next && reaches(before, next)) {
      ended.value = true;
    }
    known.value = next;
  });
}

async function askRole(sid: string, heartbeat: boolean): Promise<Role | undefined> {
  const outcome = await read(rolePath, { sid, heartbeat });
  return outcome.state === "answer" ? asRole(field(outcome.value, "role")) : undefined;
}

/** The heartbeat: what the role is now. An answer for a session that was left meanwhile is void. */
export async function refreshRole(): Promise<void> {
  const sid = currentSid();
  const answer = await askRole(sid, true);
  if (answer !== undefined && sid === currentSid()) {
    noteRole(answer, false);
  }
}

/** A session that never logged in has the role that everybody has. */
export async function refreshDefaultRole(): Promise<void> {
  everybodys.value = (await askRole(newSid(), false)) ?? everybodys.value;
}

/**
 * Logs in with a session of its own and takes it over only when it has the role. The reply of a
 * login does not tell whether the password was right, and a session that was handed over in a link
 * must not become more powerful than it came.
 */
export async function login(wish: Role, password: string): Promise<"ok" | "wrong" | "unreachable"> {
  const before = currentSid();
  const fresh = newSid();
  const request = { role: wish, password };
  const reply = await write("/data/login", request, { method: "POST", sid: fresh });
  const answer = reply.state === "unreachable" ? undefined : await askRole(fresh, false);
  if (answer === undefined) {
    return "unreachable";
  }
  if (!reaches(answer, wish)) {
    return "wrong";
  }
  adoptSid(fresh);
  noteRole(answer, true);
  void forget(before);
  return "ok";
}

/** Who did not ask for it finds again what was typed, after the next login. */
export async function logout(byIntent = true): Promise<void> {
  const before = currentSid();
  adoptSid(newSid());
  const next = everybodys.value ?? (await askRole(currentSid(), false)) ?? "guest";
  noteRole(next, byIntent);
  await forget(before);
}

/** The daemon keeps sessions for ever: one that is left is logged out. */
async function forget(sid: string): Promise<void> {
  await write("/data/login", { role: "guest", password: "" }, { method: "POST", sid });
}
