// What the other tests stand on: a link that spoiled the order would look like a daemon that does.
import assert from "node:assert/strict";
import { once } from "node:events";
import { connect, createServer } from "node:net";
import { test } from "node:test";
import { setImmediate as nextTurn } from "node:timers/promises";
import { BadLink } from "./support/badLink.mjs";

/** A sequence of numbers of four bytes each, so that any exchanged piece shows. */
function countingBytes(length) {
  const bytes = Buffer.alloc(length);
  for (let at = 0; at < length; at += 4) bytes.writeUInt32BE(at, at);
  return bytes;
}

/** Serves these bytes to each client in small pieces, at whatever times the machine gives. */
async function serveInPieces(bytes) {
  const server = createServer(async (socket) => {
    socket.setNoDelay(true);
    for (let at = 0; at < bytes.length; at += 400) {
      socket.write(bytes.subarray(at, at + 400));
      if (Math.random() < 0.5) await nextTurn();
    }
    socket.end();
  });
  server.listen(0, "127.0.0.1");
  await once(server, "listening");
  return server;
}

async function bytesThrough(link) {
  const client = connect(Number(new URL(link.address).port), "127.0.0.1");
  const pieces = [];
  client.on("data", (piece) => pieces.push(piece));
  await once(client, "close");
  return Buffer.concat(pieces);
}

test("the bad link delays everything and changes the order of nothing", async () => {
  const bytes = countingBytes(4_000_000);
  const server = await serveInPieces(bytes);
  const link = await BadLink.to(server.address().port);
  try {
    link.delayMs = () => 78;
    for (let round = 0; round < 3; round += 1) {
      const begin = performance.now();
      const passed = await bytesThrough(link);
      assert.ok(performance.now() - begin >= 77, "nothing was delayed");
      assert.ok(bytes.equals(passed), "the bytes came in another order");
    }
    link.delayMs = () => 30 * Math.random();
    assert.ok(bytes.equals(await bytesThrough(link)), "uneven delays spoiled the order");
  } finally {
    link.close();
    server.close();
  }
});
