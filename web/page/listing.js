// A program as lines of C++, C and Python.
'use strict';

const snake = (name) => name.replace(/([a-z0-9])([A-Z])/g, '$1_$2')
    .replace(/([A-Z]+)([A-Z][a-z])/g, '$1_$2').toLowerCase();
const word = (value) => '0x' + (value >>> 0).toString(16).toUpperCase().padStart(8, '0');
const fraction = (value) => String(value);
const isColor = (name) => ARGUMENTS[name] === 'color';
const isSwitch = (name) => ARGUMENTS[name] === 'switch';

function plainValue(name, value, language) {
  if (isColor(name)) return word(value);
  if (isSwitch(name))
    return language === 'python' ? (value ? 'True' : 'False') : value ? 'true' : 'false';
  if (name === 'path' || name === 'text') return JSON.stringify(value);
  if (value === 'null') return {cpp: 'nullptr', c: 'NULL', python: 'None'}[language];
  if (name === 'which') {
    const plane = snake(value).toUpperCase();
    return {cpp: `GfxSurface::${value}`, c: `GFX_${plane}`, python: `gfx.${plane}`}[language];
  }
  return fraction(value);
}

const CPP = {
  New: (on, [depth, w, h]) => [`GfxSurface* ${on} = GfxSurface::New(${depth});`,
                               `${on}->Initialise(${w}, ${h});`],
  NewBytes: (on, [n]) => [`unsigned char ${on}[${n}] = {};`],
  NewBits: (on, [bits]) => byteArray(on, bits),
  NewRamp: (on, [n]) => [`unsigned char ${on}[3 * ${n}];`,
                         `for (int i = 0; i < 3 * ${n}; ++i)`,
                         `    ${on}[i] = static_cast<unsigned char>(i / 3 * (i % 3 + 1));`],
  NewFont: (on) => [`GfxFontCache ${on};`],
  NewCanvas: (on) => [`gfx::kit::Canvas ${on}(*surface);`],
};
const C = {
  New: (on, [depth, w, h]) => [`gfx_surface* ${on};`, `gfx_surface_new(${depth}, &${on});`,
                               `gfx_surface_initialise(${on}, ${w}, ${h});`],
  NewBytes: CPP.NewBytes,
  NewBits: CPP.NewBits,
  NewRamp: (on, args) => CPP.NewRamp(on, args)
      .map((line) => line.replace(/static_cast<unsigned char>/, '(unsigned char)')),
  NewFont: (on) => [`gfx_font_cache* ${on};`, `gfx_font_cache_new(&${on});`],
};
const PYTHON = {
  New: (on, [depth, w, h]) => [`${on} = gfx.Surface(${depth}, ${w}, ${h})`],
  NewBytes: (on, [n]) => [`${on} = bytearray(${n})`],
  NewBits: (on, [bits]) => [`${on} = bytes([${bits.join(', ')}])`],
  NewRamp: (on, [n]) => [`${on} = bytes(i // 3 * (i % 3 + 1) & 255 for i in range(3 * ${n}))`],
  NewFont: (on) => [`${on} = gfx.FontCache()`],
};

function byteArray(on, bits) {
  const half = (from) => bits.slice(from, from + 10).map((b) => `0x${b.toString(16).toUpperCase()
      .padStart(2, '0')}`).join(', ');
  return [`const unsigned char ${on}[] = {`, `    ${half(0)},`, `    ${half(10)}};`];
}

// The kit's calls take points, paints and strokes, so each has a line of its own.
const KIT = (() => {
  const rect = (v) => `{${fraction(v.x)}, ${fraction(v.y)}, ${fraction(v.w)}, ${fraction(v.h)}}`;
  const center = (v) => `{${fraction(v.x)}, ${fraction(v.y)}}`;
  const ink = (value) => `gfx::kit::Color::FromWord(${word(value)})`;
  const degrees = (value) => `gfx::kit::Angle::Degrees(${value})`;
  return {
    FillRoundRect: (v) => [`canvas.FillRoundRect(${rect(v)}, ${v.radius}, ${ink(v.color)});`],
    OutlineRoundRect: (v) => [
      `canvas.OutlineRoundRect(${rect(v)}, ${v.radius}, ${v.width}, ${ink(v.color)});`],
    FillCircle: (v) => [`canvas.FillCircle(${center(v)}, ${v.radius}, ${ink(v.color)});`],
    DrawCircle: (v) => [
      `canvas.DrawCircle(${center(v)}, ${v.radius}, ${v.width}, ${ink(v.color)});`],
    DrawArc: (v) => [
      `canvas.DrawArc(${center(v)}, ${v.radius}, ${v.width}, ${degrees(v.start)},`,
      `               ${degrees(v.sweep)}, gfx::kit::Cap::${v.cap},`,
      `               ${ink(v.color)});`],
    DrawLine: (v) => [
      'gfx::kit::Stroke stroke;', `stroke.width = ${v.width};`,
      `stroke.cap = gfx::kit::Cap::${v.cap};`,
      `canvas.DrawLine({${v.x0}, ${v.y0}}, {${v.x1}, ${v.y1}}, stroke,`,
      `                ${ink(v.color)});`],
    FillGradient: (v) => [
      'const gfx::kit::Gradient gradient = gfx::kit::Gradient::Linear(',
      `    ${center(v)}, {${v.x + v.w}, ${v.y}},`, `    ${ink(v.from)},`, `    ${ink(v.to)});`,
      `canvas.FillRect(${rect(v)}, gradient);`],
    FillGlow: (v) => [
      'const gfx::kit::Gradient gradient = gfx::kit::Gradient::Radial(',
      `    ${center(v)}, ${v.radius},`, `    ${ink(v.from)},`, `    ${ink(v.to)});`,
      `canvas.FillCircle(${center(v)}, ${v.radius}, gradient);`],
    DrawString: (v) => [
      `gfx::kit::DrawString(*surface, gfx::kit::Font(font), ${v.x}, ${v.y},`,
      `                     ${JSON.stringify(v.text)}, ${ink(v.color)},`,
      `                     gfx::kit::AlignX::${v.align}, gfx::kit::Turn::${v.turn});`],
  };
})();

function call(statement, language) {
  const [on, op, ...args] = statement;
  const names = namesOf(on, op, args.length);
  const operation = OPERATIONS.find((o) => o.names === names);
  const values = Object.fromEntries(names.map((name, i) => [name, args[i]]));
  if (on === 'kit' || on === 'canvas')
    return language === 'cpp' ? KIT[op](values) : null;
  const shown = names.map((name) => plainValue(name, values[name], language));
  const before = [];
  if (operation.dashed) {
    const [drawn, skipped] = shown.splice(-2);
    if (language === 'python') {
      shown.push(`(${drawn}, ${skipped})`);
    } else {
      before.push(`const unsigned short pattern[] = {${drawn}, ${skipped}};`);
      shown.push('pattern', '2');
    }
  }
  const isValue = operation.shows === 'value';
  if (language === 'cpp') {
    const arrow = on === 'font' ? '.' : '->';
    return [...before,
            `${isValue ? 'const unsigned value = ' : ''}${on}${arrow}${op}(${shown.join(', ')});`];
  }
  if (language === 'c') {
    const type = on === 'font' ? 'gfx_font_cache' : 'gfx_surface';
    if (isValue) {
      before.push('uint32_t value;');
      shown.push('&value');
    }
    return [...before,
            `${type}_${snake(operation.code || op)}(${[on, ...shown].join(', ')});`];
  }
  const keys = operation.dashed ? [...names.slice(0, -2), 'pattern'] : names;
  return [`${isValue ? 'value = ' : ''}${on}.${snake(op)}(` +
          `${keys.map((name, i) => `${snake(name)}=${shown[i]}`).join(', ')})`];
}

// The lines of a program as {text, isOwn}; null where a language has no words for it.
function listing(program, language) {
  const makers = {cpp: CPP, c: C, python: PYTHON}[language];
  const lines = [];
  for (const statement of program) {
    const [on, op, ...args] = statement;
    const made = op.startsWith('New') ? makers[op] && makers[op](on, args)
                                      : call(statement, language);
    if (!made) return null;
    for (const text of made) lines.push({text, isOwn: statement.isOwn === true});
  }
  return lines;
}
