// The simulated robot and the daemon as processes, in a folder of their own that looks like the demo's.
import { spawn } from "node:child_process";
import { once } from "node:events";
import { closeSync, existsSync, mkdirSync, mkdtempSync, openSync, readFileSync, readdirSync, rmSync,
  symlinkSync, writeFileSync, copyFileSync } from "node:fs";
import { createServer } from "node:net";
import os from "node:os";
import path from "node:path";
import { fileURLToPath } from "node:url";
import { waitFor } from "./deadlines.mjs";
import { ControlDoor } from "./controlDoor.mjs";

const root = path.resolve(path.dirname(fileURLToPath(import.meta.url)), "../../..");
const binaries = process.env.TESSARAD_BIN_DIR ?? path.join(root, "build/asan/bin");
const page = process.env.TESSARAD_WEB_DIST ?? path.join(root, "web/dist");
const scripts = path.join(root, "demo/scripts");

async function freePort() {
  const server = createServer();
  server.listen(0, "127.0.0.1");
  await once(server, "listening");
  const { port } = server.address();
  server.close();
  await once(server, "close");
  return port;
}

function start(program, args, options) {
  const output = openSync(path.join(options.cwd, `${path.basename(program)}.out`), "w");
  const child = spawn(program, args, { ...options, stdio: ["ignore", output, output] });
  closeSync(output);
  return child;
}

async function stop(child, signal = "SIGTERM") {
  if (child.exitCode !== null || child.signalCode !== null) return;
  const ended = once(child, "exit");
  child.kill(signal);
  await ended;
}

/** A robot with its daemon and its page: what `make run` starts, on free ports, in a temporary folder. */
export class RunningRobot {
  /**
   * settings replaces lines of the demo's configuration: {"operator": "x"} makes it `operator=x`. With
   * slowStatusSeconds each status of a service takes so long. The daemon listens at host and gets the
   * variables besides its own.
   */
  static async start({ settings = {}, world, slowStatusSeconds, host = "127.0.0.1",
    variables = {} } = {}) {
    const robot = new RunningRobot();
    Object.assign(robot, { host, variables });
    robot.prepare(settings);
    if (slowStatusSeconds) robot.slowStatusDown(slowStatusSeconds);
    await robot.startSimulator(world);
    await robot.startDaemon();
    return robot;
  }

  prepare(settings) {
    this.base = mkdtempSync(path.join(os.tmpdir(), "tessarad-web-"));
    this.folder = path.join(this.base, "run");
    // The asan and tsan presets look for the annotated files in the folder veltrano of their own.
    this.configuration = path.join(this.folder, "veltrano");
    this.programs = path.join(this.folder, "programs");
    for (const folder of [this.configuration, this.programs]) mkdirSync(folder, { recursive: true });
    symlinkSync(scripts, path.join(this.base, "scripts"));
    mkdirSync(path.join(this.folder, "etc"));
    symlinkSync(this.configuration, path.join(this.folder, "etc/veltrano"));
    const samples = path.join(root, "demo/etc/veltrano");
    for (const name of readdirSync(samples).filter((name) => name.endsWith(".conf"))) {
      let text = readFileSync(path.join(samples, name), "utf8")
        .replaceAll("@ROOT@/build/demo/bin", binaries)
        .replaceAll("@ROOT@/demo/run", this.folder)
        .replaceAll("@ROOT@", root);
      for (const [key, value] of Object.entries(settings)) {
        text = text.replace(new RegExp(`^${key}=.*$`, "m"), () => `${key}=${value}`);
      }
      writeFileSync(path.join(this.configuration, name), text);
    }
    for (const name of readdirSync(path.join(root, "demo/programs"))) {
      copyFileSync(path.join(root, "demo/programs", name), path.join(this.programs, name));
    }
  }

  slowStatusDown(seconds) {
    this.commandFolder = path.join(this.base, "commands");
    mkdirSync(this.commandFolder);
    writeFileSync(path.join(this.commandFolder, "systemctl"),
      `#!/bin/sh\nsleep ${seconds}\necho slow\n`, { mode: 0o755 });
  }

  async startSimulator(world) {
    this.record = path.join(this.base, "record.jsonl");
    const args = ["--listen=127.0.0.1:0", "--control=127.0.0.1:0", `--record=${this.record}`];
    if (world) args.push(`--world=${world}`);
    this.simulator = start(path.join(binaries, "veltrano-sim"), args, { cwd: this.base });
    const out = path.join(this.base, "veltrano-sim.out");
    const said = /listening on (\S+)\nveltrano-sim: control door on (\S+):(\d+)\n/;
    const [, address, host, port] = await waitFor("the simulated robot", () =>
      said.exec(readFileSync(out, "utf8")));
    this.simulatorAddress = address;
    this.door = await ControlDoor.open(host, Number(port));
  }

  async startDaemon() {
    const file = path.join(this.configuration, "tessarad.conf");
    for (let attempt = 0; attempt < 5; attempt += 1) {
      this.port ??= await freePort();
      const text = readFileSync(file, "utf8");
      writeFileSync(file, text.replace(/^win_httpserver=.*$/m,
        `win_httpserver=http://${this.host}:${this.port}`));
      this.daemon = start(path.join(binaries, "tessarad"),
        ["-v", `-conf=${file}`, `-veltrano=${this.simulatorAddress}`, `-resourcepath=${page}`],
        { cwd: this.folder, env: this.environment() });
      const out = path.join(this.folder, "tessarad.out");
      const first = await waitFor("the daemon to listen", () =>
        /Listening for requests|Unkown error/.exec(readFileSync(out, "utf8")));
      if (first[0] === "Listening for requests") return;
      await stop(this.daemon);
      this.port = undefined;
    }
    throw new Error("the daemon found no port to listen at");
  }

  environment() {
    const standIns = [...(this.commandFolder ? [this.commandFolder] : []),
      path.join(scripts, "service-stand-ins"), path.join(scripts, "stand-ins")];
    return { ...process.env, ...this.variables, TESSARAD_DEMO_RUN: this.folder,
      LUMVIEW_DAEMON: `http://127.0.0.1:${this.port}`,
      PATH: `${standIns.join(":")}:${process.env.PATH}` };
  }

  get address() {
    return `http://127.0.0.1:${this.port}/`;
  }

  /** Kills the daemon without letting it say goodbye. */
  async killDaemon() {
    await stop(this.daemon, "SIGKILL");
  }

  /** Restarts a daemon at the same port. */
  async restartDaemon() {
    await stop(this.daemon);
    await this.startDaemon();
  }

  /** The commands that the robot has received, each with the monotonic time in ms. */
  commands() {
    if (!existsSync(this.record)) return [];
    const lines = readFileSync(this.record, "utf8").split("\n").slice(0, -1);
    return lines.map((line) => JSON.parse(line));
  }

  async close() {
    this.door?.close();
    if (this.daemon) await stop(this.daemon);
    if (this.simulator) await stop(this.simulator);
    rmSync(this.base, { recursive: true, force: true });
  }
}
