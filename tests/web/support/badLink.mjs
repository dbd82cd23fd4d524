// A link between browser and robot that can be bad: each piece of data is late by a delay of its own,
// order kept, and sometimes nothing goes through for a while.
import { once } from "node:events";
import { connect, createServer } from "node:net";

export class BadLink {
  #server;
  #sockets = new Set();
  #stalledUntil = 0;
  delayMs = () => 0;

  static async to(port) {
    const link = new BadLink();
    link.#server = createServer((near) => {
      const far = connect(port, "127.0.0.1");
      link.#join(near, far);
      link.#join(far, near);
    });
    link.#server.listen(0, "127.0.0.1");
    await once(link.#server, "listening");
    return link;
  }

  get address() {
    return `http://127.0.0.1:${this.#server.address().port}/`;
  }

  // One timer for all that waits: timers of different lengths may ring in another order than they were set.
  #join(from, to) {
    const waiting = [];
    let timer;
    const passOn = () => {
      timer = undefined;
      while (waiting.length > 0) {
        const left = Math.max(waiting[0].due, this.#stalledUntil) - performance.now();
        if (left > 0) {
          timer = setTimeout(passOn, Math.ceil(left));
          return;
        }
        waiting.shift().work();
      }
    };
    const later = (work) => {
      waiting.push({ due: performance.now() + this.delayMs(), work });
      if (timer === undefined) passOn();
    };
    this.#sockets.add(from);
    from.on("data", (data) => later(() => to.writable && to.write(data)));
    from.on("close", () => {
      this.#sockets.delete(from);
      later(() => to.destroy());
    });
    from.on("error", () => {});
  }

  /** Lets nothing through for so long; what comes meanwhile goes through afterwards. */
  stall(ms) {
    this.#stalledUntil = performance.now() + ms;
  }

  close() {
    this.#server.close();
    for (const socket of this.#sockets) socket.destroy();
  }
}
