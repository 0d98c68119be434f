// SPDX-License-Identifier: Apache-2.0
//
// A structure, or two that are compared, as a list of rows of which only those in sight are in the document.
"use strict";

const data = JSON.parse(document.getElementById("data").textContent);
// items: {number, values, total, parts}, the first is the one at the top, and each stands behind the first that uses it;
// a part: [item, quantity, changes], when structures are compared with the quantity before as the fourth.
const {items, columns, levels, isComparison} = data;
const mostRows = 200000; // that are unfolded at once
const mostPrinted = 20000;
const mostUsers = 500; // of an item that are listed
const element = id => document.getElementById(id);
const list = element("list");

const users = items.map(() => []); // the items that use an item, with the part
items.forEach((item, place) => item.parts.forEach(part => users[part[0]].push({item: place, part})));

function differenceOf(part) {
  const [, quantity, , before] = part ?? [];
  return before === undefined || before === quantity ? "" : before === 0 ? "added" : quantity === 0 ? "removed" : "changed";
}

// The items below which something differs.
const touched = new Set();
const toVisit = items.flatMap((item, place) => item.parts.some(differenceOf) ? [place] : []);
while (toVisit.length > 0) {
  const place = toVisit.pop();
  if (!touched.has(place)) {
    touched.add(place);
    toVisit.push(...users[place].map(user => user.item));
  }
}

// What is shown: a row is {item, part, level, isOpen}.
let rows = [];
let selected = 0;
let matches = []; // items
let isMatch = new Set();
let isFlat = false; // each item once, with its total, not the tree
let order = {column: 0, isRising: true};
let note = "";

const rowHeight = () => parseInt(getComputedStyle(document.documentElement).getPropertyValue("--row"), 10);
const onlyDifferences = () => isComparison && element("differences").checked;
const isShown = part => !onlyDifferences() || differenceOf(part) !== "" || touched.has(part[0]);
const hasParts = row => !isFlat && (levels === 0 || row.level < levels) && items[row.item].parts.some(isShown);
const partsOf = row => items[row.item].parts.filter(isShown)
  .map(part => ({item: part[0], part, level: row.level + 1, isOpen: false}));

function endOfBranch(place) {
  let end = place + 1;
  while (end < rows.length && rows[end].level > rows[place].level) {
    ++end;
  }
  return end;
}

function unfold(place) {
  if (hasParts(rows[place]) && !rows[place].isOpen) {
    rows[place].isOpen = true;
    rows = [...rows.slice(0, place + 1), ...partsOf(rows[place]), ...rows.slice(place + 1)];
  }
}

function fold(place) {
  if (rows[place].isOpen) {
    rows[place].isOpen = false;
    rows.splice(place + 1, endOfBranch(place) - place - 1);
  }
}

function showTree(isAll) {
  rows = [];
  const toShow = [{item: 0, part: null, level: 0, isOpen: false}];
  note = "";
  while (toShow.length > 0) {
    const row = toShow.pop();
    rows.push(row);
    if ((isAll || row.level === 0) && hasParts(row)) {
      if (rows.length + toShow.length < mostRows || row.level === 0) {
        row.isOpen = true;
        partsOf(row).reverse().forEach(part => toShow.push(part));
      } else {
        note = `Branches behind the first ${mostRows} rows are left folded.`;
      }
    }
  }
  selected = 0;
}

const byLanguage = new Intl.Collator(undefined, {numeric: true});

function valueIn(column, item) {
  return column === "number" ? item.number : column === "total" ? BigInt(item.total) : item.values[column];
}

function showTotals() {
  const columnsInOrder = ["number", ...columns.keys(), "total"];
  const column = columnsInOrder[order.column];
  const compare = (left, right) => typeof left === "bigint" ? Number(left > right) - Number(left < right)
    : byLanguage.compare(left, right);
  rows = items.map((item, place) => ({item: place, part: null, level: 0, isOpen: false, value: valueIn(column, item)}));
  rows.sort((left, right) => (order.isRising ? 1 : -1) * compare(left.value, right.value));
  note = "";
  selected = 0;
}

function show() {
  isFlat ? showTotals() : showTree(isComparison);
  select(0);
}

function newElement(name, className, text) {
  const made = document.createElement(name);
  made.className = className;
  made.textContent = text ?? "";
  return made;
}

function cell(className, text) {
  const made = newElement("span", className, text);
  made.setAttribute("role", "gridcell");
  made.title = text;
  return made;
}

function quantityText(part) {
  return part === null ? "" : differenceOf(part) === "changed" ? `${part[3]} → ${part[1]}` : String(part[1] || part[3]);
}

function rowElement(row, place) {
  const item = items[row.item];
  const difference = differenceOf(row.part);
  const made = newElement("div", `row ${difference}`);
  made.id = `row-${place}`;
  made.setAttribute("role", "row");
  made.setAttribute("aria-level", row.level + 1);
  made.setAttribute("aria-rowindex", place + 1);
  made.setAttribute("aria-selected", place === selected);
  made.style.setProperty("--level", row.level);
  made.classList.toggle("selected", place === selected);
  made.classList.toggle("match", isMatch.has(row.item));
  const first = cell("item");
  const toggle = newElement("span", "toggle", hasParts(row) ? (row.isOpen ? "▾" : "▸") : "");
  toggle.setAttribute("aria-hidden", "true");
  if (hasParts(row)) {
    made.setAttribute("aria-expanded", row.isOpen);
  }
  first.append(toggle, newElement("span", "number", item.number));
  made.append(first, cell("quantity", quantityText(row.part)), ...item.values.map((value, column) =>
    cell(column === 0 ? "name" : "value", value)), cell("total", isComparison ? difference : item.total));
  made.addEventListener("click", event => {
    if (event.target === toggle) {
      row.isOpen ? fold(place) : unfold(place);
    }
    select(place);
  });
  made.addEventListener("dblclick", () => activate(place));
  return made;
}

function draw(isPrinting = false) {
  const height = rowHeight();
  const first = isPrinting ? 0 : Math.max(0, Math.floor(list.scrollTop / height) - 10);
  const end = isPrinting ? mostPrinted : first + Math.ceil(list.clientHeight / height) + 20;
  element("space").style.height = `${rows.length * height}px`;
  element("rows").style.transform = `translateY(${first * height}px)`;
  element("rows").replaceChildren(...rows.slice(first, end).map((row, place) => rowElement(row, first + place)));
  element("note").textContent = isPrinting && rows.length > mostPrinted ? `The first ${mostPrinted} rows of ${rows.length}.` : note;
  list.classList.toggle("flat", isFlat);
  setColumns();
  list.setAttribute("aria-rowcount", rows.length);
  list.setAttribute("aria-activedescendant", `row-${selected}`);
}

// Each row is a grid of its own; so the columns are as wide as their longest texts, known beforehand. Numbers are never cut.
const longest = texts => texts.reduce((length, text) => Math.max(length, text.length), 8);
const longestNumber = longest(items.map(item => item.number));
const longestQuantity = longest(users.flat().map(user => quantityText(user.part)));
const longestTotal = longest(isComparison ? ["difference"] : items.map(item => item.total));

function setColumns() {
  const deepest = rows.reduce((level, row) => Math.max(level, row.level), 0);
  const widths = [`minmax(calc(${longestNumber} * .62em + ${deepest} * 18px + 20px), 1fr)`,
    ...(isFlat ? [] : [`calc(${longestQuantity} * .62em)`]), "minmax(10rem, 3fr)",
    ...columns.slice(1).map(() => "minmax(5rem, 1fr)"), `calc(${longestTotal} * .62em)`];
  list.style.setProperty("--columns", widths.join(" "));
}

function drawHead() {
  const names = ["item", "quantity", ...columns, isComparison ? "difference" : "total"];
  const classes = ["item", "quantity", ...columns.map((_, column) => column === 0 ? "name" : "value"), "total"];
  element("head").replaceChildren(...names.map((name, place) => {
    const made = newElement("span", classes[place]);
    made.setAttribute("role", "columnheader");
    if (isFlat && name !== "quantity") {
      const column = place === 0 ? 0 : place - 1;
      const button = newElement("button", "", name + (column === order.column ? (order.isRising ? " ▴" : " ▾") : ""));
      button.addEventListener("click", () => {
        order = {column, isRising: column !== order.column || !order.isRising};
        drawHead();
        show();
      });
      made.append(button);
    } else {
      made.textContent = name;
    }
    return made;
  }));
}

function drawDetails() {
  const row = rows[selected];
  const item = items[row.item];
  const values = new Map(columns.map((name, column) => [name, item.values[column]]));
  if (!isComparison) {
    values.set("total", item.total);
  }
  if (row.part !== null) {
    values.set(isComparison ? "quantity" : "quantity here", quantityText(row.part));
    values.set("changes", row.part[2].join(", "));
    values.set("difference", differenceOf(row.part));
  }
  const made = newElement("dl");
  values.forEach((value, name) => value !== "" && made.append(newElement("dt", "", name), newElement("dd", "", value)));
  const used = newElement("ul");
  users[row.item].slice(0, mostUsers).forEach(user => {
    const button = newElement("button", "", items[user.item].number);
    button.addEventListener("click", () => goTo(user.item));
    const entry = newElement("li");
    entry.append(button, ` ${quantityText(user.part)} × ${items[user.item].values[0]}`);
    used.append(entry);
  });
  if (users[row.item].length > mostUsers) {
    used.append(newElement("li", "", `and ${users[row.item].length - mostUsers} more`));
  }
  element("details").replaceChildren(newElement("h2", "", item.number), made,
    ...(users[row.item].length > 0 ? [newElement("h3", "", "Used in"), used] : []));
}

function select(place) {
  selected = Math.min(Math.max(place, 0), rows.length - 1);
  const height = rowHeight();
  const head = element("head").offsetHeight;
  const top = selected * height;
  if (top < list.scrollTop) {
    list.scrollTop = top;
  } else if (top + height + head > list.scrollTop + list.clientHeight) {
    list.scrollTop = top + height + head - list.clientHeight;
  }
  draw();
  drawDetails();
}

// Unfolds the way to the item where it is used first, and selects it there.
function goTo(item) {
  if (isFlat) {
    switchView();
  }
  const way = [item];
  while (way[0] !== 0) {
    way.unshift(users[way[0]][0].item);
  }
  let place = 0;
  for (const step of way.slice(1)) {
    unfold(place);
    const level = rows[place].level + 1;
    const end = endOfBranch(place);
    do {
      ++place;
    } while (place < end && (rows[place].level !== level || rows[place].item !== step));
    if (place === end) { // what does not differ is not shown
      element("differences").checked = false;
      showTree(false);
      goTo(item);
      return;
    }
  }
  select(place);
}

function search() {
  const text = element("search").value.trim().toLowerCase();
  matches = text === "" ? [] : [...items.keys()].filter(place =>
    [items[place].number, ...items[place].values].some(value => value.toLowerCase().includes(text)));
  isMatch = new Set(matches);
  element("matches").textContent = text === "" ? "" : matches.length === 0 ? "nothing found" : `${matches.length} found`;
  draw();
}

function goToMatch(step) {
  if (matches.length > 0) {
    const current = matches.indexOf(rows[selected].item);
    const next = current === -1 ? (step > 0 ? 0 : matches.length - 1) : (current + step + matches.length) % matches.length;
    goTo(matches[next]);
    element("matches").textContent = `${next + 1} of ${matches.length}`;
  }
}

function switchView() {
  isFlat = !isFlat;
  order = {column: 0, isRising: true};
  element("totals").setAttribute("aria-pressed", isFlat);
  drawHead();
  list.scrollTop = 0;
  show();
}

function activate(place) {
  if (isFlat) {
    goTo(rows[place].item);
  } else {
    rows[place].isOpen ? fold(place) : unfold(place);
    select(place);
  }
}

function rowAbove(place) {
  let above = place;
  while (above > 0 && rows[above].level >= rows[place].level) {
    --above;
  }
  return above;
}

const pageOfRows = () => Math.max(1, Math.floor(list.clientHeight / rowHeight()) - 2);
const keys = {
  ArrowDown: () => select(selected + 1),
  ArrowUp: () => select(selected - 1),
  PageDown: () => select(selected + pageOfRows()),
  PageUp: () => select(selected - pageOfRows()),
  Home: () => select(0),
  End: () => select(rows.length - 1),
  Enter: () => activate(selected),
  " ": () => activate(selected),
  ArrowRight: () => {
    if (rows[selected].isOpen) {
      select(selected + 1);
    } else {
      unfold(selected);
      draw();
    }
  },
  ArrowLeft: () => {
    if (rows[selected].isOpen) {
      fold(selected);
      draw();
    } else {
      select(rowAbove(selected));
    }
  },
};

list.addEventListener("keydown", event => {
  if (keys[event.key] && !event.ctrlKey && !event.metaKey && !event.altKey && event.target === list) {
    event.preventDefault();
    keys[event.key]();
  }
});
document.addEventListener("keydown", event => {
  if (event.key === "/" && event.target !== element("search")) {
    event.preventDefault();
    element("search").focus();
  }
});
element("search").addEventListener("input", search);
element("search").addEventListener("keydown", event => {
  if (event.key === "Enter") {
    goToMatch(event.shiftKey ? -1 : 1);
  } else if (event.key === "Escape" || event.key === "ArrowDown") {
    list.focus();
  }
});
element("previous").addEventListener("click", () => goToMatch(-1));
element("next").addEventListener("click", () => goToMatch(1));
for (const [name, isAll] of [["unfold", true], ["fold", false]]) {
  element(name).addEventListener("click", () => {
    if (isFlat) {
      switchView();
    }
    showTree(isAll);
    select(0);
  });
}
element("totals").addEventListener("click", switchView);
element("differences").addEventListener("change", show);
let isDrawing = false;
list.addEventListener("scroll", () => {
  if (!isDrawing) {
    isDrawing = true;
    requestAnimationFrame(() => { isDrawing = false; draw(); });
  }
});
window.addEventListener("resize", () => draw());
window.addEventListener("beforeprint", () => draw(true));
window.addEventListener("afterprint", () => draw());
window.addEventListener("hashchange", goToHash);

// The number of an item behind the page's address selects it: "A-100.html#B-200".
function goToHash() {
  const number = decodeURIComponent(location.hash.slice(1));
  const item = items.findIndex(candidate => candidate.number === number);
  if (item > 0) {
    goTo(item);
  }
}

document.title = data.title;
element("title").append(data.title, newElement("small", "", ` ${items[0].values[0]}`));
element("summary").textContent = data.summary;
element("filter").hidden = !isComparison;
element("totals").hidden = isComparison;
drawHead();
show();
goToHash();
