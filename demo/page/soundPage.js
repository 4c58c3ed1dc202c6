"use strict";
const data = JSON.parse(document.getElementById("data").textContent);
const at = id => document.getElementById(id);
const wet = at("wet"), dry = at("dry");
let shown = data.entries, selected = 0, rendering = 0, heard = wet;

// The list

// Names are written by whoever named a file: none is read as a place elsewhere.
const address = file => file.split("/").map(encodeURIComponent).join("/");

function matches(entry) {
  const words = at("search").value.toLowerCase().split(/\s+/).filter(Boolean);
  const text = [entry.number, entry.name, entry.family, entry.purpose, entry.turnFirst]
    .join(" ").toLowerCase();
  const family = at("family").value;
  return (!family || entry.family === family) && words.every(word => text.includes(word));
}

function fillList() {
  const current = shown[selected];
  shown = data.entries.filter(matches);
  selected = Math.max(0, shown.indexOf(current));
  const list = at("list");
  list.replaceChildren(...shown.map((entry, place) => {
    const item = document.createElement("li");
    item.role = "option";
    item.id = "entry-" + place;
    for (const [kind, text] of [["slot", entry.number], ["", entry.name], ["family", entry.family]]) {
      const span = document.createElement("span");
      span.className = kind;
      span.textContent = text;
      item.append(span);
    }
    item.onclick = () => select(place);
    return item;
  }));
  at("count").textContent = shown.length + " of " + data.entries.length + " " + data.entriesWord;
  if (shown.length && shown[selected] !== current)
    select(selected);
  else
    mark();
}

function mark() {
  [...at("list").children].forEach((item, place) => item.ariaSelected = String(place === selected));
  at("list").setAttribute("aria-activedescendant", "entry-" + selected);
  at("list").children[selected]?.scrollIntoView({block: "nearest"});
}

function select(place) {
  const goesOn = !heard.paused;
  selected = place;
  const entry = shown[selected];
  rendering = Math.min(rendering, entry.renderings.length - 1);
  at("name").textContent = entry.name;
  at("family-of").textContent = [(data.numberWord + " " + entry.number).trim(), entry.family]
    .filter(Boolean).join(" · ");
  at("purpose").textContent = entry.purpose;
  at("turn").textContent = entry.turnFirst ? "Turn first: " + entry.turnFirst : "";
  at("settings").textContent = entry.settings;
  location.replace("#" + entry.number);
  mark();
  showRendering(goesOn);
}

// Sound

function current() { return shown[selected]?.renderings[rendering]; }

function showRendering(goesOn) {
  const now = current();
  if (!now) return;
  const second = data.materials[now.material].name === showRendering.material ? heard.currentTime : 0;
  showRendering.material = data.materials[now.material].name;
  wet.pause();
  dry.pause();
  wet.src = address(now.sound);
  dry.src = address(data.materials[now.material].sound);
  wet.currentTime = dry.currentTime = second;
  const buttons = shown[selected].renderings.map((other, place) => {
    const button = document.createElement("button");
    button.textContent = data.materials[other.material].name;
    button.ariaPressed = String(place === rendering);
    button.onclick = () => { const on = !heard.paused; rendering = place; showRendering(on); };
    return button;
  });
  at("materials").replaceChildren(...buttons);
  paint();
  if (goesOn) heard.play();
}

/// Hears the other one from where this one is.
function hear(player) {
  if (heard === player) return;
  const goesOn = !heard.paused;
  player.currentTime = heard.currentTime;
  heard.pause();
  heard = player;
  if (goesOn) heard.play();
  showHeard();
}

function showHeard() {
  at("wet-figure").classList.toggle("sounding", heard === wet);
  at("dry-figure").classList.toggle("sounding", heard === dry);
}

for (const player of [wet, dry]) {
  player.addEventListener("play", () => {
    const other = player === wet ? dry : wet;
    other.pause();
    heard = player;
    showHeard();
    requestAnimationFrame(follow);
  });
  for (const event of ["seeked", "pause"]) player.addEventListener(event, drawOver);
}

function follow() {
  drawOver();
  if (!heard.paused) requestAnimationFrame(follow);
}

// The picture

const heat = [[0, 0, 4], [40, 11, 84], [101, 21, 110], [159, 42, 99], [212, 72, 66], [245, 125, 21],
              [250, 193, 39], [252, 255, 164]];
function colour(part) {
  const place = Math.min(part, 0.9999) * (heat.length - 1), from = Math.floor(place);
  return heat[from].map((c, i) => c + (heat[from + 1][i] - c) * (place - from));
}

const looks = {
  both: ["#b6ff5c", "cut-off"], left: ["#b6ff5c", "cut-off left"], right: ["#5ad1e6", "cut-off right"],
  gain: ["#f4f1ea", "gain of the modulation, on the scale at the right"]};

let pictures = [];
function paint() {
  const now = current();
  pictures = now.panels.map(panel => {
    const bytes = atob(panel.picture), picture = new OffscreenCanvas(panel.columns, panel.rows);
    const image = new ImageData(panel.columns, panel.rows);
    for (let column = 0; column < panel.columns; ++column)
      for (let row = 0; row < panel.rows; ++row) {
        const [red, green, blue] = colour(bytes.charCodeAt(column * panel.rows + row) / 255);
        image.data.set([red, green, blue, 255], 4 * ((panel.rows - 1 - row) * panel.columns + column));
      }
    picture.getContext("2d").putImageData(image, 0, 0);
    return picture;
  });
  at("picture").ariaLabel = "Spectrogram of " + shown[selected].name;
  explain(now);
  drawOver();
}

function explain(now) {
  const lines = now.panels.map(panel => panel.side);
  if (now.panels[0].gain) lines.push("gain");
  const legend = lines.map(line => {
    const span = document.createElement("span"), sample = document.createElement("i");
    sample.style.background = looks[line][0];
    span.append(sample, looks[line][1]);
    return span;
  });
  if (now.larger) {
    const link = document.createElement("a");
    link.className = "larger";
    link.href = address(now.larger);
    link.textContent = "larger picture";
    legend.push(link);
  }
  at("legend").replaceChildren(...legend);
}

function drawOver() {
  const now = current(), canvas = at("picture");
  if (!now || !pictures.length) return;
  const scale = window.devicePixelRatio || 1;
  const width = canvas.width = canvas.clientWidth * scale;
  const height = canvas.height = canvas.clientHeight * scale;
  const draw = canvas.getContext("2d"), each = height / now.panels.length;
  now.panels.forEach((panel, place) => {
    draw.setTransform(1, 0, 0, 1, 0, place * each);
    drawPanel(draw, panel, pictures[place], width, place ? each : each - scale, scale);
  });
  draw.setTransform(1, 0, 0, 1, 0, 0);
  const x = heard.currentTime / data.materials[now.material].seconds * width;
  draw.fillStyle = "#e4572e";
  draw.fillRect(x - scale, 0, 2 * scale, height);
}

function drawPanel(draw, panel, picture, width, height, scale) {
  draw.drawImage(picture, 0, 0, width, height);
  const line = (points, style, weight) => {
    draw.beginPath();
    points.forEach((y, i) => draw.lineTo((i + 0.5) * width / points.length, (1 - y / 1000) * height));
    draw.strokeStyle = "rgba(0,0,0,.75)"; // stands out on bright and on dark
    draw.lineWidth = 2.2 * weight * scale;
    draw.stroke();
    draw.strokeStyle = style;
    draw.lineWidth = weight * scale;
    draw.stroke();
  };
  const isDense = panel.columns > 400; // a long sound
  if (panel.gain) line(panel.gain, looks.gain[0], isDense ? 0.9 : 1.3);
  line(panel.cutoff, looks[panel.side][0], isDense ? 1 : 1.7);
  axes(draw, panel, width, height, scale);
  const name = panel.side === "both" ? "left and right averaged" : panel.side;
  const x = width - draw.measureText(name).width - 8 * scale;
  draw.fillStyle = "rgba(0,0,0,.65)";
  draw.fillRect(x - 4 * scale, 2 * scale, width, 17 * scale);
  draw.fillStyle = "#fff";
  draw.fillText(name, x, 15 * scale);
}

function axes(draw, panel, width, height, scale) {
  draw.font = 11 * scale + "px system-ui, sans-serif";
  const whole = [50, 100, 200, 500, 1000, 2000, 5000, 10000];
  for (const hertz of panel.side === "both" ? whole : [100, 1000, 10000]) {
    const y = (1 - Math.log(hertz / 20) / Math.log(1000)) * height;
    draw.fillStyle = "rgba(255,255,255,.14)";
    draw.fillRect(0, y, width, 1);
    draw.fillStyle = "rgba(255,255,255,.75)";
    draw.fillText(hertz < 1000 ? hertz + " Hz" : hertz / 1000 + " kHz", 5 * scale, y - 3 * scale);
  }
  for (const db of panel.gain ? [-36, -24, -12, 0, 12] : []) {
    const y = (1 - (db - data.gainLowDb) / (data.gainHighDb - data.gainLowDb)) * height;
    draw.fillText((db > 0 ? "+" : "") + db + " dB", width - 46 * scale, y + 4 * scale);
  }
}

at("picture").onclick = event => {
  const now = current();
  wet.currentTime = dry.currentTime =
    event.offsetX / at("picture").clientWidth * data.materials[now.material].seconds;
  drawOver();
};

// Keys

document.addEventListener("keydown", event => {
  const types = event.target === at("search") && event.key !== "ArrowUp" && event.key !== "ArrowDown";
  if (event.key === "Escape") document.activeElement.blur();
  if (types || event.ctrlKey || event.metaKey || event.altKey) return;
  const step = {ArrowDown: 1, ArrowUp: -1, PageDown: 10, PageUp: -10}[event.key];
  if (step && shown.length)
    select(Math.min(shown.length - 1, Math.max(0, selected + step)));
  else if (event.key === " ")
    heard.paused ? heard.play() : heard.pause();
  else if (event.key === "ArrowLeft")
    hear(dry);
  else if (event.key === "ArrowRight")
    hear(wet);
  else if (event.key === "/")
    at("search").focus();
  else
    return;
  event.preventDefault();
}, true);

document.title = "ZMT pedlFilter: " + data.title;
at("title").textContent = data.title;
at("notes").hidden = data.notes.length === 0;
at("notes").replaceChildren(...data.notes.map(note => {
  const item = document.createElement("li");
  item.textContent = note;
  return item;
}));
const families = [...new Set(data.entries.map(entry => entry.family))].filter(Boolean);
at("family").replaceChildren(new Option("all families", ""), ...families.map(f => new Option(f, f)));
at("family").hidden = families.length < 2;
at("search").oninput = at("family").oninput = fillList;
window.onresize = drawOver;
const wanted = data.entries.findIndex(entry => "#" + entry.number === location.hash);
fillList();
showHeard();
if (shown.length) select(Math.max(0, wanted));
