// Makes the pages quicker: a form is checked when a field is left, and the values of a field are offered while it is
// typed in. All of it works without this as well.
"use strict";

// The fields of a form as the server reads them, and what it answers.
async function send(form, address, more = {}) {
  const fields = new URLSearchParams(new FormData(form));
  for (const [name, value] of Object.entries(more)) fields.set(name, value);
  let answer;
  try {
    answer = await fetch(address, {method: "POST", body: fields, headers: {"X-Part": "1"}});
  } catch (error) {
    throw new Error("There is no answer: is cordboard web still at work?");
  }
  const text = await answer.text();
  if (answer.status === 200) return text;
  const page = new DOMParser().parseFromString(text, "text/html");
  throw new Error((page.querySelector(".notice") ?? page.body).textContent);
}

// While a button of the mouse is down nothing may move: what is pressed and what is let go have to be the same.
let letGo = Promise.resolve();
document.addEventListener("pointerdown", (event) => {
  // Of a bar that is scrolled nobody tells when it is let go.
  if (!event.target.closest?.("a, button, summary, label, input, select")) return;
  letGo = new Promise((resolve) => {
    const done = () => setTimeout(resolve);  // after the click that comes of it
    document.addEventListener("pointerup", done, {once: true});
    document.addEventListener("pointercancel", done, {once: true});
  });
});
let leaving = false;  // the page makes room for the next one

function status(text, kind = "") {
  const place = document.getElementById("status");
  place.textContent = text;
  place.className = kind;
}

// ---- The form, checked when a field is left.

let checks = 0;
let replacing = false;      // while the form makes room for the one that was checked, its events mean nothing
let unchecked = new Set();  // the fields in which somebody typed meanwhile

async function check(left) {
  const form = document.getElementById("form");
  const filled = document.getElementById("filled");
  const sent = new Map(Array.from(form.elements, (field) => [field.id, field.value]));
  const number = ++checks;
  unchecked.clear();
  filled.setAttribute("aria-busy", "true");
  let text;
  try {
    text = await send(form, "/form");
  } catch (error) {
    filled.removeAttribute("aria-busy");
    return status(error.message, "trouble");
  }
  await letGo;
  // A later check knows more.
  if (number !== checks || leaving) return;
  const typed = Array.from(form.elements).filter((field) => field.id && field.value !== sent.get(field.id));
  replace(filled, text, typed);
  filled.removeAttribute("aria-busy");
  const wrong = document.getElementById(left)?.closest(".field")?.querySelector(".error, .warning");
  status(wrong ? wrong.textContent : "");
}

// What was typed meanwhile stays, what was unfolded, and the focus where it was, with the values that are offered there.
function replace(filled, text, typed) {
  const focused = document.activeElement;
  const place = focused.selectionStart ?? null;
  const offered = list !== null && field === focused;
  const open = Array.from(filled.querySelectorAll("details[open]"), (details) => details.id);
  replacing = true;
  close();
  filled.innerHTML = text;
  for (const id of open) document.getElementById(id)?.setAttribute("open", "");
  for (const each of typed) {
    const now = document.getElementById(each.id);
    if (!now) continue;
    now.value = each.value;
    unchecked.add(each.id);
  }
  const now = focused.isConnected ? null : focused.id && document.getElementById(focused.id);
  if (now) {
    now.focus();
    if (place !== null) now.setSelectionRange?.(place, place);
  }
  replacing = false;
  if (now && offered) offer(now, false);
}

// ---- The values of a field.

let list = null;   // the element that shows them
let field = null;  // whose values they are
let asked = 0;

// The value that is being typed: of several the last one.
function typedPart(value) {
  return value.slice(value.lastIndexOf("&") + 1);
}

function close() {
  if (!list) return;
  list.remove();
  list = null;
  field.setAttribute("aria-expanded", "false");
  field.removeAttribute("aria-activedescendant");
}

function options() {
  return list ? Array.from(list.querySelectorAll("[role=option]")) : [];
}

function mark(option) {
  for (const each of options()) each.setAttribute("aria-selected", String(each === option));
  if (!option) return field.removeAttribute("aria-activedescendant");
  field.setAttribute("aria-activedescendant", option.id);
  option.scrollIntoView({block: "nearest"});
}

function choose(option) {
  const begun = field.value.slice(0, field.value.lastIndexOf("&") + 1);
  field.value = begun + option.dataset.value;
  close();
  field.focus();
  check(field.id);
}

async function offer(input, all) {
  const number = ++asked;
  const part = all ? "" : typedPart(input.value);
  let text;
  try {
    text = await send(input.form, "/values", {parameter: input.dataset.list, q: part});
  } catch (error) {
    return status(error.message, "trouble");
  }
  input = document.getElementById(input.id);  // the form may have been checked meanwhile
  if (number !== asked || document.activeElement !== input) return;
  close();
  field = input;
  list = document.createElement("div");
  list.className = "options";
  list.innerHTML = text;
  options().forEach((option, index) => (option.id = "option." + index));
  input.closest(".choice").append(list);
  input.setAttribute("aria-expanded", "true");
  status(options().length + " values");
}

function move(event) {
  const all = options();
  const now = all.findIndex((option) => option.getAttribute("aria-selected") === "true");
  if (event.key === "ArrowDown") {
    event.preventDefault();
    if (!list) return offer(event.target, true);
    if (all.length) mark(all[(now + 1) % all.length]);
  } else if (event.key === "ArrowUp" && all.length) {
    event.preventDefault();
    mark(all[(now + all.length - (now < 0 ? 0 : 1)) % all.length]);
  } else if (event.key === "Enter" && now >= 0) {
    event.preventDefault();
    choose(all[now]);
  } else if (event.key === "Escape" && list) {
    event.preventDefault();
    close();
  }
}

function equip(root) {
  for (const input of root.querySelectorAll("input[data-list]")) {
    input.setAttribute("role", "combobox");
    input.setAttribute("aria-expanded", "false");
    input.setAttribute("aria-autocomplete", "list");
    input.setAttribute("aria-controls", "options");
  }
}

// ---- What happens on a page.

document.addEventListener("change", (event) => {
  if (!replacing && event.target.form?.id === "form") check(event.target.id);
});

document.addEventListener("input", (event) => {
  if (event.target.dataset?.list) offer(event.target, false);
});

document.addEventListener("keydown", (event) => {
  if (event.target.dataset?.list) move(event);
  const help = event.key === "F1" && event.target.closest?.(".field")?.querySelector("a.help");
  if (!help) return;
  event.preventDefault();
  window.open(help.href);
});

document.addEventListener("mousedown", (event) => {
  const option = event.target.closest?.("[role=option]");
  // The field keeps the focus, so that it is not left.
  if (option) event.preventDefault();
});

document.addEventListener("click", (event) => {
  const option = event.target.closest?.("[role=option]");
  if (option && list?.contains(option)) return choose(option);
  const button = event.target.closest?.("button.open");
  if (button) {
    event.preventDefault();
    const input = button.previousElementSibling;
    if (list && field === input) return close();
    input.focus();
    offer(input, true);
  } else if (list && !list.contains(event.target) && event.target !== field) {
    close();
  }
});

document.addEventListener("focusout", (event) => {
  if (replacing) return;
  if (event.target === field) close();
  if (unchecked.has(event.target.id)) check(event.target.id);
});

// What was sent is sent once.
document.addEventListener("submit", (event) => {
  leaving = true;
  setTimeout(() => {
    for (const button of event.target.querySelectorAll("button")) button.disabled = true;
  });
});

// A page that comes back from the browser's memory may be sent again.
window.addEventListener("pageshow", () => {
  leaving = false;
  for (const button of document.querySelectorAll("button")) button.disabled = false;
});

// What was typed is there again for who goes on and comes back; passwords are typed anew.
const memory = "form " + location.search;
const isOpened = location.pathname === "/form" && location.search !== "";  // and not sent

window.addEventListener("pagehide", () => {
  const form = document.getElementById("form");
  if (!form || !isOpened) return;
  const given = form.elements.given.value.split(",");
  const typed = Array.from(form.querySelectorAll("input[type=text]"))
    .filter((field) => field.value !== field.defaultValue || given.includes(field.id.slice(2)));
  sessionStorage.setItem(memory, JSON.stringify(typed.map((field) => [field.id, field.value])));
});

function bringBack() {
  const comesBack = performance.getEntriesByType("navigation")[0]?.type === "back_forward";
  const typed = JSON.parse(sessionStorage.getItem(memory) ?? "[]");
  sessionStorage.removeItem(memory);
  if (!comesBack || !isOpened || !typed.length) return;
  for (const [id, value] of typed) {
    const field = document.getElementById(id);
    if (field) field.value = value;
  }
  check(typed[0][0]);
}

document.addEventListener("DOMContentLoaded", () => {
  const filled = document.getElementById("filled");
  if (!filled) return;
  equip(filled);
  new MutationObserver(() => equip(filled)).observe(filled, {childList: true});
  // The form is checked by itself here.
  document.documentElement.classList.add("script");
  bringBack();
  const wrong = document.querySelector("main > .notice.error");
  if (wrong) {
    wrong.setAttribute("tabindex", "-1");
    wrong.focus();
  }
});
