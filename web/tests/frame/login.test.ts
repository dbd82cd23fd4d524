import assert from "node:assert/strict";
import { test } from "node:test";
import { rolesToOffer, roleToSuggest } from "../../src/frame/LoginDialog";

test("a role that everybody has needs no login", () => {
  assert.deepEqual(rolesToOffer("guest"), ["operator", "admin"]);
  assert.deepEqual(rolesToOffer("operator"), ["admin"]);
  assert.deepEqual(rolesToOffer("admin"), []);
});

test("the role that is suggested serves, and is more than what one has", () => {
  assert.equal(roleToSuggest("operator", "guest"), "operator");
  assert.equal(roleToSuggest("operator", undefined), "operator");
  assert.equal(roleToSuggest("operator", "operator"), "admin");
  assert.equal(roleToSuggest("admin", "guest"), "admin");
  assert.equal(roleToSuggest("admin", "admin"), "admin");
});
