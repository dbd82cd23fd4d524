// The simulated robot's control door: JSON-RPC 2.0, one message a line.
import { once } from "node:events";
import { connect } from "node:net";

export class ControlDoor {
  #socket;
  #pending = new Map();
  #nextId = 1;
  #rest = "";

  static async open(host, port) {
    const socket = connect(port, host);
    await once(socket, "connect");
    return new ControlDoor(socket);
  }

  constructor(socket) {
    this.#socket = socket;
    socket.setEncoding("utf8");
    socket.on("data", (text) => this.#read(text));
    socket.on("error", () => {});
  }

  #read(text) {
    const lines = (this.#rest + text).split("\n");
    this.#rest = lines.pop();
    for (const line of lines) {
      const answer = JSON.parse(line);
      this.#pending.get(answer.id)?.(answer);
      this.#pending.delete(answer.id);
    }
  }

  /** The result of one method. */
  async call(method, params = {}) {
    const id = this.#nextId++;
    const answer = new Promise((resolve) => this.#pending.set(id, resolve));
    this.#socket.write(`${JSON.stringify({ jsonrpc: "2.0", id, method, params })}\n`);
    const { result, error } = await answer;
    if (error) throw new Error(`${method}: ${error.message}`);
    return result;
  }

  close() {
    this.#socket.destroy();
  }
}
