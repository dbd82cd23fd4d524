// The robot's first page: live sensors, the role, and the outputs; drive.js drives. One request a path at a time;
// what has not been answered for three seconds is shown as stale.
"use strict";

const byId = (id) => document.getElementById(id);

// A session of its own for each tab. getRandomValues is there without a secure context too.
const session = sessionStorage.sid ??= [...crypto.getRandomValues(new Uint8Array(16))]
    .map((byte) => byte.toString(16).padStart(2, "0")).join("");

function request(path, options = {}) {
    return fetch(`${path}?sid=${session}`, {
        cache: "no-store", signal: AbortSignal.timeout(2000), ...options,
    });
}

let cameraUrl = "";

// The daemon hands each image out once, so a 500 most often means that there is no newer one yet.
async function readImage() {
    const answer = await request("/cam0");
    return answer.ok ? answer.blob() : undefined;
}

function showImage(image) {
    URL.revokeObjectURL(cameraUrl);
    cameraUrl = URL.createObjectURL(image);
    byId("camera").src = cameraUrl;
    byId("camera-answer").textContent = `image of ${new Date().toLocaleTimeString()}`;
}

// Ahead is up and the robot stands below the middle, as its scanner does not look back.
function showScan({ angle_min: firstAngle, angle_increment: step, range_max: farthest, ranges }) {
    byId("scan-answer").textContent = ranges.length === 0
        ? "no scan yet" : `${ranges.length} rays, ${farthest.toFixed(1)} m far`;
    const canvas = byId("scan");
    const context = canvas.getContext("2d");
    const style = getComputedStyle(canvas);
    const [x0, y0] = [canvas.width / 2, canvas.height * 0.6];
    const scale = y0 / (farthest || 1);
    context.clearRect(0, 0, canvas.width, canvas.height);
    context.strokeStyle = style.getPropertyValue("--line");
    for (let radius = 1; radius <= farthest; ++radius) {
        context.beginPath();
        context.arc(x0, y0, radius * scale, 0, 2 * Math.PI);
        context.stroke();
    }
    context.fillStyle = style.getPropertyValue("--accent");
    ranges.forEach((range, ray) => {
        if (range < farthest) {
            const angle = firstAngle + ray * step;
            context.fillRect(x0 - Math.sin(angle) * range * scale - 1.5,
                y0 - Math.cos(angle) * range * scale - 1.5, 3, 3);
        }
    });
    context.fillStyle = style.getPropertyValue("--on");
    context.beginPath();
    context.moveTo(x0, y0 - 12);
    context.lineTo(x0 - 8, y0 + 8);
    context.lineTo(x0 + 8, y0 + 8);
    context.fill();
}

// An empty body means that there is no data yet.
async function read(path) {
    const text = await (await request(path)).text();
    return text === "" ? undefined : JSON.parse(text);
}

function showList(element, texts) {
    while (element.children.length < texts.length) {
        element.append(document.createElement("li"));
    }
    texts.forEach(([text, isOn], index) => {
        element.children[index].textContent = text;
        element.children[index].classList.toggle("on", isOn);
    });
}

function showOdometry([x, y, phi, vx, vy, omega, sequence]) {
    const degrees = (radians) => radians * 180 / Math.PI;
    const rows = {
        "x": `${x.toFixed(3)} m`, "y": `${y.toFixed(3)} m`, "heading": `${degrees(phi).toFixed(1)}°`,
        "forward": `${vx.toFixed(2)} m/s`, "sideways": `${vy.toFixed(2)} m/s`,
        "turning": `${degrees(omega).toFixed(1)}°/s`, "reading": String(sequence),
    };
    const list = byId("odometry");
    if (list.children.length === 0) {
        for (const name of Object.keys(rows)) {
            const term = document.createElement("dt");
            term.textContent = name;
            list.append(term, document.createElement("dd"));
        }
    }
    Object.values(rows).forEach((text, index) => {
        list.children[2 * index + 1].textContent = text;
    });
}

function showBumper({ value }) {
    const element = byId("bumper");
    element.textContent = value ? "Touching something" : "Free";
    element.classList.toggle("alarm", value);
}

function showRole({ role }) {
    byId("role").textContent = role;
    const isGuest = role === "guest";
    for (const button of document.querySelectorAll("#outputs button, #relays button, #drive button")) {
        button.disabled = isGuest;
        button.title = isGuest ? "Log in as operator" : "";
    }
    if (isGuest) {
        byId("camera-answer").textContent = "Log in as operator to see the camera";
    }
}

const sources = [
    { path: "/data/userrole", periodMs: 1000, element: "role", show: showRole },
    { path: "/data/odometry", periodMs: 200, element: "odometry", show: showOdometry },
    { path: "/data/bumper", periodMs: 200, element: "bumper", show: showBumper },
    { path: "/cam0", periodMs: 100, element: "camera", get: readImage, show: showImage },
    { path: "/data/scan0", periodMs: 200, element: "scan", show: showScan },
    {
        path: "/data/distancesensorarray", periodMs: 200, element: "distances",
        show: (values) => showList(byId("distances"), values.map((m) => [`${m.toFixed(2)} m`, false])),
    },
    {
        path: "/data/analoginputarray", periodMs: 500, element: "analog",
        show: (values) => showList(byId("analog"), values.map((v) => [`${v.toFixed(2)} V`, false])),
    },
    {
        path: "/data/digitalinputarray", periodMs: 500, element: "digital",
        show: (values) => showList(byId("digital"), values.map((on) => [on ? "on" : "off", on])),
    },
    {
        path: "/data/controllerinfo", periodMs: 5000, element: "controller",
        show: (record) => { byId("controller").textContent = JSON.stringify(record, null, 2); },
    },
];

let lastAnswerMs = Date.now();

function showLink(isAnswering) {
    byId("link").textContent = isAnswering ? "Connected" : "No answer from the robot, still trying";
    byId("link").classList.toggle("alarm", !isAnswering);
}

async function poll(source) {
    try {
        const value = await (source.get ?? read)(source.path);
        lastAnswerMs = Date.now();
        if (value !== undefined) {
            source.show(value);
            source.shownMs = lastAnswerMs;
        }
        showLink(true);
    } catch {
        showLink(Date.now() - lastAnswerMs < 3000);
    }
    const isStale = Date.now() - (source.shownMs ?? 0) > 3 * source.periodMs + 3000;
    byId(source.element).classList.toggle("stale", isStale);
    setTimeout(poll, document.hidden ? 2000 : source.periodMs, source);
}

async function logIn(event) {
    event.preventDefault();
    const form = byId("login");
    const body = { role: form.role.value, password: form.password.value };
    form.password.value = "";
    try {
        const answer = await request("/data/login", { method: "POST", body: JSON.stringify(body) });
        byId("login-answer").textContent = (await answer.json()).message;
        // The message names the default role after a wrong password: the session itself is asked.
        showRole(await read("/data/userrole"));
        if (byId("role").textContent !== body.role) {
            byId("login-answer").textContent = "Wrong password";
        }
    } catch {
        byId("login-answer").textContent = "No answer, try again";
    }
}

function addSwitches(formId, count, path) {
    const form = byId(formId);
    const fieldset = form.querySelector("fieldset");
    for (let index = 0; index < count; ++index) {
        const label = document.createElement("label");
        const box = document.createElement("input");
        box.type = "checkbox";
        label.append(box, ` ${index}`);
        fieldset.append(label);
    }
    form.addEventListener("submit", async (event) => {
        event.preventDefault();
        const values = [...form.querySelectorAll("input")].map((box) => box.checked);
        const time = new Date().toLocaleTimeString();
        try {
            const answer = await request(path, { method: "PUT", body: JSON.stringify(values) });
            byId("outputs-answer").textContent = answer.ok
                ? `Sent at ${time}` : "Refused: log in as operator or admin";
        } catch {
            byId("outputs-answer").textContent = "No answer, try again";
        }
    });
}

byId("login").addEventListener("submit", logIn);
addSwitches("outputs", 8, "/data/digitaloutputarray");
addSwitches("relays", 2, "/data/relayarray");
sources.forEach(poll);
