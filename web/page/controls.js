// The controls for an operation's arguments. Each calls `changed` after it has set its value.
'use strict';

function element(tag, properties = {}, ...children) {
  const made = Object.assign(document.createElement(tag), properties);
  made.append(...children);
  return made;
}

function slider(name, range, values, changed) {
  const [min, max, step] = range;
  const input = element('input', {type: 'range', id: `argument-${name}`, min, max, step});
  input.value = values[name];
  const output = element('output', {value: values[name]});
  input.addEventListener('input', () => {
    values[name] = Number(input.value);
    output.value = input.value;
    changed();
  });
  return [element('label', {htmlFor: input.id, textContent: name}), input, output];
}

// A colour word: its three channels by the browser's chooser, its alpha by a slider.
function inkChooser(name, values, changed) {
  const hex = '#' + (values[name] & 0xFFFFFF).toString(16).padStart(6, '0');
  const color = element('input', {type: 'color', id: `argument-${name}`, value: hex});
  const alpha = element('input', {type: 'range', min: 0, max: 255, step: 1,
                                  ariaLabel: `${name}: alpha, 255 is invisible`});
  alpha.value = values[name] >>> 24;
  const output = element('output', {value: word(values[name])});
  const set = () => {
    values[name] = ((Number(alpha.value) << 24) | parseInt(color.value.slice(1), 16)) >>> 0;
    output.value = word(values[name]);
    changed();
  };
  color.addEventListener('input', set);
  alpha.addEventListener('input', set);
  return [element('label', {htmlFor: color.id, textContent: name}),
          element('div', {className: 'ink'}, color, alpha, output)];
}

function chooser(name, options, values, changed) {
  const select = element('select', {id: `argument-${name}`},
                         ...options.map((text) => element('option', {textContent: text})));
  select.value = values[name];
  select.addEventListener('change', () => { values[name] = select.value; changed(); });
  return [element('label', {htmlFor: select.id, textContent: name}), select];
}

function toggle(name, values, changed) {
  const input = element('input', {type: 'checkbox', id: `argument-${name}`,
                                  checked: values[name]});
  input.addEventListener('change', () => { values[name] = input.checked; changed(); });
  return [element('label', {htmlFor: input.id, textContent: name}), input];
}

function textField(name, values, changed) {
  const input = element('input', {type: 'text', id: `argument-${name}`, value: values[name],
                                  maxLength: 40});
  input.addEventListener('input', () => { values[name] = input.value; changed(); });
  return [element('label', {htmlFor: input.id, textContent: name}), input];
}

// The controls for one argument; none for what is not to be changed.
function controlFor(name, values, changed) {
  const kind = ARGUMENTS[name];
  if (kind === 'color') return inkChooser(name, values, changed);
  if (kind === 'switch') return toggle(name, values, changed);
  if (kind === 'text') return textField(name, values, changed);
  if (!Array.isArray(kind)) return null;
  return typeof kind[0] === 'number' ? slider(name, kind, values, changed)
                                     : chooser(name, kind, values, changed);
}

// Where in a canvas a pointer or an arrow key leads: calls `moved(x, y)`, in pixels of the canvas.
function trackPixel(canvas, moved) {
  const at = {x: canvas.width >> 1, y: canvas.height >> 1};
  const go = (x, y) => {
    at.x = Math.max(0, Math.min(canvas.width - 1, x));
    at.y = Math.max(0, Math.min(canvas.height - 1, y));
    moved(at.x, at.y);
  };
  const point = (event) => {
    const box = canvas.getBoundingClientRect();
    go(Math.floor((event.clientX - box.left) * canvas.width / box.width),
       Math.floor((event.clientY - box.top) * canvas.height / box.height));
  };
  canvas.addEventListener('pointermove', point);
  canvas.addEventListener('pointerdown', point);
  canvas.addEventListener('keydown', (event) => {
    const step = {ArrowLeft: [-1, 0], ArrowRight: [1, 0], ArrowUp: [0, -1], ArrowDown: [0, 1]};
    if (!step[event.key]) return;
    event.preventDefault();
    const reach = event.shiftKey ? 8 : 1;
    go(at.x + reach * step[event.key][0], at.y + reach * step[event.key][1]);
  });
  return at;
}
