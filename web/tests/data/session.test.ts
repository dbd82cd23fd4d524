import assert from "node:assert/strict";
import { beforeEach, test } from "node:test";
import * as session from "../../src/data/session";
import { currentSid } from "../../src/data/sid";

const password = "secret";

/** What the daemon knows: the role of each session that is logged in. */
let daemon = { sessions: new Map<string, string>(), defaultRole: "guest", reachable: true };

function answer(path: string, sid: string, body: string): string {
  if (path === "/data/login") {
    const wish = JSON.parse(body) as { role: string; password: string };
    if (wish.role === "guest" || wish.role === daemon.defaultRole) {
      daemon.sessions.delete(sid);
    } else if (wish.password === password) {
      daemon.sessions.set(sid, wish.role);
    }
    return '{"message": "", "success": true}';
  }
  return JSON.stringify({ role: daemon.sessions.get(sid) ?? daemon.defaultRole });
}

beforeEach(async () => {
  daemon = { sessions: new Map(), defaultRole: "guest", reachable: true };
  globalThis.fetch = (async (url: string, init: RequestInit = {}) => {
    if (!daemon.reachable) {
      throw new TypeError("failed");
    }
    const { pathname, searchParams } = new URL(url, "http://robot");
    return new Response(answer(pathname, searchParams.get("sid") ?? "", String(init.body)));
  }) as typeof fetch;
  await session.refreshDefaultRole();
  await session.logout();
});

test("a right password gives the role", async () => {
  assert.equal(session.canOperate.value, false);
  assert.equal(await session.login("operator", password), "ok");
  assert.equal(session.role.value, "operator");
  assert.equal(session.canOperate.value, true);
  assert.equal(session.canAdminister.value, false);
});

test("a wrong password leaves role and session as they were", async () => {
  await session.login("operator", password);
  const sid = currentSid();
  assert.equal(await session.login("admin", "guess"), "wrong");
  assert.equal(session.role.value, "operator");
  assert.equal(currentSid(), sid);
  await session.refreshRole();
  assert.equal(session.role.value, "operator");
});

test("a login takes a new session and leaves no power in the old one", async () => {
  const before = currentSid();
  await session.login("operator", password);
  const between = currentSid();
  await session.login("admin", password);
  assert.notEqual(before, between);
  await new Promise((resolve) => setTimeout(resolve, 5));
  assert.deepEqual([...daemon.sessions.keys()], [currentSid()]);
});

test("a logout leaves nothing behind and is no ended session", async () => {
  await session.login("admin", password);
  await session.logout();
  assert.equal(session.role.value, "guest");
  assert.equal(session.sessionEnded.value, false);
  assert.equal(daemon.sessions.size, 0);
});

test("a daemon that forgot the login ends the session, a new login begins one", async () => {
  await session.login("admin", password);
  daemon.sessions.clear();
  await session.refreshRole();
  assert.equal(session.role.value, "guest");
  assert.equal(session.sessionEnded.value, true);
  await session.login("operator", password);
  assert.equal(session.sessionEnded.value, false);
});

test("a lost link keeps the role", async () => {
  await session.login("operator", password);
  daemon.reachable = false;
  await session.refreshRole();
  assert.equal(session.role.value, "operator");
  assert.equal(await session.login("admin", password), "unreachable");
  assert.equal(session.role.value, "operator");
});

test("the role of everybody is that of a session that never logged in", async () => {
  daemon.defaultRole = "admin";
  await session.login("operator", password);
  await session.refreshDefaultRole();
  assert.equal(session.defaultRole.value, "admin");
});

test("a logout that nobody asked for counts as a session that ended", async () => {
  await session.login("admin", password);
  await session.logout(false);
  assert.equal(session.role.value, "guest");
  assert.equal(session.sessionEnded.value, true);
  await session.login("admin", password);
  assert.equal(session.sessionEnded.value, false);
  await session.logout();
  assert.equal(session.sessionEnded.value, false);
});
