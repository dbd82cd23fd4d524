// Driving by hand: the robot moves while a button is held. Commands are repeated, as the daemon stops
// the robot half a second after the last one; one is under way at a time, and the newest wins.
"use strict";

const repeatMs = 150;
const still = [0, 0, 0];

let wanted = still;
let isSending = false;
let heldButton;

const isStill = (velocity) => velocity.every((part) => part === 0);

function say(text) {
    byId("drive-answer").textContent = text;
}

async function send(velocity) {
    const answer = await request("/data/omnidrive", { method: "PUT", body: JSON.stringify(velocity) });
    if (!answer.ok) {
        throw new Error("refused");
    }
}

// Goes on until a stop has been acknowledged.
async function keepSending() {
    if (isSending) {
        return;
    }
    isSending = true;
    for (;;) {
        const velocity = wanted;
        try {
            await send(velocity);
            say(isStill(velocity) ? "Stopped" : "Driving");
            if (isStill(velocity) && isStill(wanted)) {
                break;
            }
        } catch (error) {
            if (error.message === "refused") {
                wanted = still;
                release();
                say("Refused: log in as operator, or choose a lower speed");
                break;
            }
            say("No answer, trying again");
        }
        if (velocity === wanted) {
            await new Promise((resolve) => setTimeout(resolve, repeatMs));
        }
    }
    isSending = false;
}

function drive(velocity) {
    wanted = velocity;
    keepSending();
}

function hold(button) {
    release();
    heldButton = button;
    button.classList.add("held");
    const speed = Number(byId("speed").value);
    drive(button.dataset.velocity.split(" ").map((part) => Number(part) * speed));
}

function release() {
    if (heldButton === undefined) {
        return;
    }
    heldButton.classList.remove("held");
    heldButton = undefined;
    drive(still);
}

for (const button of document.querySelectorAll("#drive button")) {
    button.addEventListener("pointerdown", (event) => {
        if (event.button === 0) {
            button.setPointerCapture(event.pointerId);
            hold(button);
        }
    });
    for (const end of ["pointerup", "pointercancel", "lostpointercapture", "blur"]) {
        button.addEventListener(end, release);
    }
    button.addEventListener("keydown", (event) => {
        if (event.key === " " || event.key === "Enter") {
            event.preventDefault();
            if (!event.repeat) {
                hold(button);
            }
        }
    });
    button.addEventListener("keyup", release);
    button.addEventListener("contextmenu", (event) => event.preventDefault());
}
document.addEventListener("visibilitychange", release);
window.addEventListener("blur", release);
window.addEventListener("pagehide", release);

function showSpeed() {
    byId("speed-shown").textContent = `${Number(byId("speed").value).toFixed(2)} m/s or rad/s`;
}
byId("speed").addEventListener("input", showSpeed);
showSpeed();
