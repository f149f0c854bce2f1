// The one table that the playground is driven by: what operations there are, which arguments they
// take in which range, and what has to stand before them to draw something. The pictures, the
// sliders and the lines of code in three languages all come from here.
'use strict';

const WIDTH = 160;
const HEIGHT = 120;
const BUFFER_PITCH = 32;   // bytes of a row of bits
const BUFFER_ROWS = 200;

// What an argument may be, by its name. A slider: [lowest, highest, step].
const ARGUMENTS = {
  x: [-40, 200, 1], y: [-40, 160, 1], w: [0, 200, 1], h: [0, 160, 1],
  x0: [-40, 200, 1], y0: [-40, 160, 1], x1: [-40, 200, 1], y1: [-40, 160, 1],
  srcX: [-60, 60, 1], srcY: [-60, 60, 1], planeX: [0, 60, 1], planeY: [0, 60, 1],
  bufX: [-40, 60, 1], bufY: [-40, 60, 1], n: [0, 160, 1],
  fx: [-1, 2, 0.05], fy: [-1, 2, 0.05], transparency: [-0.5, 1, 0.01],
  newAlpha: [0, 255, 1], drawn: [1, 24, 1], skipped: [0, 24, 1],
  emSize: [6, 72, 1], code: [32, 1023, 1], radius: [0, 60, 0.25], width: [0, 30, 0.25],
  start: [-360, 360, 1], sweep: [-360, 360, 1],
  color: 'color', from: 'color', to: 'color', tile: 'switch', smooth: 'switch', text: 'text',
  which: ['PlaneAlpha', 'PlaneRed', 'PlaneGreen', 'PlaneBlue'],
  src: ['source', 'surface', 'null'], angle: ['0', '90', '270'],
  cap: ['kButt', 'kRound', 'kSquare'], align: ['kLeft', 'kCenter', 'kRight'],
  turn: ['kNone', 'kUp', 'kDown'],
  // Not for sliders: they stand in the lines as they are.
  mask: 'object', plane: 'object', target: 'object', bgr: 'object', bits: 'object',
  buffer: 'object', dest: 'object', bufPitch: 'fixed', destPitch: 'fixed', path: 'fixed',
};

// The picture that operations draw on, and what they draw from. A statement is the object, the
// operation and its arguments.
const PAPER = [
  ['surface', 'RectFill', 0, 0, 160, 120, 0x00F4EBDD],
  ['surface', 'RectFill', 0, 78, 160, 42, 0x005F8F8B],
  ['surface', 'RectFill', 92, 18, 44, 44, 0x00E4A13A],
  ['surface', 'DrawAALine', 0, 110, 159, 24, 0x0033424F],
];
const SOURCE = [
  ['source', 'New', 32, 48, 48],
  ['source', 'RectFill', 0, 0, 48, 48, 0xFFFFFFFF],
  ['source', 'RectFill', 4, 4, 40, 40, 0x00C8404E],
  ['source', 'RectFill', 12, 12, 24, 24, 0x80F2D16B],
  ['source', 'RectFill', 20, 20, 8, 8, 0xFF000000],
  ['source', 'DrawLine', 4, 43, 43, 4, 0x00FFFFFF],
];
const MASK = [
  ['mask', 'New', 8, 64, 64],
  ['mask', 'RectFill', 0, 0, 64, 64, 0x00C0C0C0],
  ['mask', 'RectFill', 4, 4, 56, 56, 0x00808080],
  ['mask', 'RectFill', 12, 12, 40, 40, 0x00404040],
  ['mask', 'RectFill', 20, 20, 24, 24, 0x00000000],
  ['mask', 'DrawAALine', 0, 63, 63, 0, 0x00FFFFFF],
];
const PLANE = [['plane', 'New', 8, 160, 120]];
const FONT = (size) => [['font', 'NewFont'], ['font', 'OpenFace', 'DejaVuSans.ttf', size, true]];
const CANVAS = [['canvas', 'NewCanvas']];
const BITS = [0xFF, 0x81, 0xBD, 0xA5, 0xA5, 0xBD, 0x81, 0xFF, 0xF0, 0xCC,
              0xAA, 0xCC, 0xF0, 0x00, 0x0F, 0x33, 0x55, 0x33, 0x0F, 0xFF];

const BOX = {x: 30, y: 24, w: 90, h: 64};
const ENDS = {x0: 12, y0: 104, x1: 146, y1: 14, color: 0x00B3261E};
const INSIDE = {x: 16, y: 12, w: 120, h: 90};
const insideOnly = (v) => {  // display rectangles are trusted to lie inside the surface
  v.x = Math.min(Math.max(v.x, 0), WIDTH);
  v.y = Math.min(Math.max(v.y, 0), HEIGHT);
  v.w = Math.min(v.w, WIDTH - v.x);
  v.h = Math.min(v.h, HEIGHT - v.y);
};
const planeStart = {x: 0, y: 0, w: 160, h: 120, planeX: 0, planeY: 0, plane: 'plane',
                    which: 'PlaneRed'};
const monoStart = {x: 0, y: 0, w: 160, h: 120, bufX: 0, bufY: 0, buffer: 'buffer',
                   bufPitch: BUFFER_PITCH};
const bltStart = {...INSIDE, dest: 'dest', destPitch: 2 * WIDTH};
const copyStart = {...BOX, srcX: 0, srcY: 0, src: 'source', tile: true};
const MONO_BUFFER = [['buffer', 'NewBytes', BUFFER_PITCH * BUFFER_ROWS]];
const DISPLAY = [['dest', 'NewBytes', 2 * WIDTH * HEIGHT]];

// title, operation, arguments in order, where they start; `on`: the object, else the surface;
// `before` and `after`: statements around it; `shows`: what is pictured, else the surface;
// `limit`: puts right what the engine trusts; `code`: the name in C where two share one name.
const GROUPS = [
  ['Rectangles', [
    {title: 'RectFill', args: 'x y w h color', start: {...BOX, color: 0x00336699},
     about: 'Fills a rectangle. On 32 bits the alpha byte is stored, too.'},
    {title: 'RectFillBlend', args: 'x y w h color', start: {...BOX, color: 0x70336699},
     about: 'Blends a colour by its alpha: 0 is opaque, 255 invisible.'},
    {title: 'RectFillBlend, masked', op: 'RectFillBlend', args: 'x y w h color srcX srcY mask',
     code: 'RectFillBlendMask', start: {...BOX, color: 0x00336699, srcX: 0, srcY: 0, mask: 'mask'},
     before: MASK, about: 'Blends through a mask of transparencies, cut at its right and bottom.'},
    {title: 'Clear', args: '', start: {}, about: 'Zeroes all pixels: opaque black.'},
  ]],
  ['Copies', [
    {title: 'RectCopy', args: 'x y w h srcX srcY src tile', start: copyStart, before: SOURCE,
     about: 'Copies from a surface of any depth, or from itself; tiled, the source repeats.'},
    {title: 'RectCopy, keyed', op: 'RectCopy', args: 'x y w h srcX srcY src tile',
     start: copyStart, before: [...SOURCE, ['surface', 'SetTransparent', 0x00C8404E]],
     about: 'With a colour key on, pixels of that very colour word are left out.'},
    {title: 'RectBlend', args: 'x y w h srcX srcY src tile', start: copyStart, before: SOURCE,
     about: "Blends by each source pixel's own alpha."},
    {title: 'RectBlendAlpha', args: 'x y w h srcX srcY transparency src tile',
     start: {...copyStart, transparency: 0.4}, before: SOURCE,
     about: 'The same with the source made more transparent first.'},
  ]],
  ['Lines', [
    {title: 'DrawLine', args: 'x0 y0 x1 y1 color', start: ENDS,
     about: 'Both ends included; the reversed line has the same pixels.'},
    {title: 'DrawLine, dashed', op: 'DrawLine', args: 'x0 y0 x1 y1 color drawn skipped',
     code: 'DrawLineDashed', start: {...ENDS, drawn: 8, skipped: 4}, dashed: true,
     about: 'Runs of pixels, alternately drawn and skipped.'},
    {title: 'DrawAALine', args: 'x0 y0 x1 y1 color', start: ENDS,
     about: 'Anti-aliased: two neighbouring pixels share the colour at each step.'},
    {title: 'DrawAALine, dashed', op: 'DrawAALine', args: 'x0 y0 x1 y1 color drawn skipped',
     code: 'DrawAALineDashed', start: {...ENDS, drawn: 8, skipped: 4}, dashed: true,
     about: 'The two together.'},
  ]],
  ['Pixels', [
    {title: 'SetPixelRGB', args: 'x y color', start: {x: 100, y: 40, color: 0x00B3261E},
     about: 'Stores one pixel; only 32-bit pixels store its alpha.'},
    {title: 'SetPixelRGBBlend', args: 'x y color', start: {x: 100, y: 40, color: 0x80B3261E},
     about: 'Mixes a colour into one pixel.'},
    {title: 'RetPixelRGB', args: 'x y', start: {x: 100, y: 40}, shows: 'value',
     about: 'Reads one pixel as a colour word; 0 outside the clip rectangle.'},
    {title: 'RetPixelMergeRGB', args: 'x y fx fy', start: {x: 91, y: 40, fx: 0.5, fy: 0},
     shows: 'value', about: 'Reads between four pixels.'},
    {title: 'SetPixelLineBGR24', args: 'x y n bgr', start: {x: 10, y: 50, n: 140, bgr: 'bgr'},
     before: [['bgr', 'NewRamp', 160]],
     about: 'Writes a run of three-byte pixels; 16- and 32-bit surfaces only.'},
    {title: 'SetPixelLineMono', args: 'x y n color bits',
     start: {x: 4, y: 50, n: 152, color: 0x00B3261E, bits: 'bits'},
     before: [['bits', 'NewBits', BITS]],
     about: 'Paints where a bit is 0; 16- and 32-bit surfaces only.'},
  ]],
  ['Planes and bits', [
    {title: 'RectExtract', args: 'x y w h planeX planeY plane which', start: planeStart,
     before: PLANE, shows: 'plane', about: "Copies one byte of every pixel's colour word."},
    {title: 'RectInsert', args: 'x y w h planeX planeY plane which',
     start: {...planeStart, ...BOX, plane: 'mask'}, before: MASK,
     about: "Replaces one byte of every pixel's colour word by a plane's."},
    {title: 'RectExtractMono', args: 'x y w h bufX bufY buffer bufPitch', start: monoStart,
     before: MONO_BUFFER, shows: 'buffer', about: 'One bit a pixel: 1 where the grey exceeds 128.'},
    {title: 'RectExtractMonoAlpha', args: 'x y w h bufX bufY buffer bufPitch', start: monoStart,
     before: [['surface', 'RectFill', 40, 30, 60, 50, 0xC0FFFFFF], ...MONO_BUFFER],
     shows: 'buffer', about: 'One bit a pixel: 1 where the alpha is below 128.'},
  ]],
  ['Display memory', [
    {title: 'QuickBltTo565', args: 'x y w h dest destPitch', start: bltStart, before: DISPLAY,
     shows: 'dest', limit: insideOnly, about: 'Copies to 16-bit display memory, 5-6-5.'},
    {title: 'QuickBltTo555', args: 'x y w h dest destPitch', start: bltStart, before: DISPLAY,
     shows: 'dest', limit: insideOnly, about: 'The same in 5-5-5, bit 15 zero.'},
    {title: 'QuickBltTo24', args: 'x y w h dest destPitch', start: bltStart, before: DISPLAY,
     shows: 'dest', limit: insideOnly, about: 'Writes nothing: there is no 24-bit layout.'},
    {title: 'QuickBltTo32', args: 'x y w h dest destPitch', start: bltStart, before: DISPLAY,
     shows: 'dest', limit: insideOnly, about: 'Writes nothing: there is no 32-bit layout.'},
  ]],
  ['Clip, size, alpha', [
    {title: 'SetClipRect', args: 'x y w h', start: BOX,
     after: [['surface', 'RectFillBlend', 0, 0, 160, 120, 0x60336699]],
     about: 'All drawing ends at the clip rectangle.'},
    {title: 'ResetClipRect', args: '', start: {},
     before: [['surface', 'SetClipRect', 30, 24, 9, 9]],
     after: [['surface', 'RectFillBlend', 0, 0, 160, 120, 0x60336699]],
     about: 'The whole surface again.'},
    {title: 'SetNewSize', args: 'w h', start: {w: 120, h: 100},
     about: 'Keeps the content while the memory is large enough; else all is zero.'},
    {title: 'OptimiseSize', args: '', start: {}, before: [['surface', 'SetNewSize', 70, 50]],
     about: 'Takes smaller memory once a side has fallen below half; the content is lost.'},
    {title: 'SetAlpha', args: 'newAlpha', start: {newAlpha: 96}, before: PLANE,
     after: [['surface', 'RectExtract', 0, 0, 160, 120, 0, 0, 'plane', 'PlaneAlpha']],
     shows: 'plane', about: 'The alpha with which 8- and 16-bit pixels are read.'},
    {title: 'SetTransparent', args: 'color', start: {color: 0x00C8404E}, before: SOURCE,
     after: [['surface', 'RectCopy', 30, 24, 90, 64, 0, 0, 'source', true]],
     about: 'Turns on the colour key of RectCopy.'},
    {title: 'SetOpaque', args: '', start: {},
     before: [...SOURCE, ['surface', 'SetTransparent', 0x00C8404E]],
     after: [['surface', 'RectCopy', 30, 24, 90, 64, 0, 0, 'source', true]],
     about: 'Turns it off.'},
  ]],
  ['Text', [
    {title: 'DrawGlyph', on: 'font', args: 'code x y color target angle', before: FONT(40),
     start: {code: 0x26, x: 64, y: 70, color: 0x00B3261E, target: 'surface', angle: '0'},
     about: 'A glyph from its pen position; turned ones draw only full ink.'},
    {title: 'OpenFace', on: 'font', args: 'path emSize smooth', before: [['font', 'NewFont']],
     start: {path: 'DejaVuSans.ttf', emSize: 24, smooth: true},
     after: [...'Word'].map((c, i) => ['font', 'DrawGlyph', c.charCodeAt(0), 8 + 38 * i, 66,
                                       0x00222222, 'surface', '0']),
     about: 'One face at one size, anti-aliased or in single bits.'},
    {title: 'DrawString', on: 'kit', args: 'x y text color align turn', before: FONT(24),
     start: {x: 80, y: 66, text: 'Grüße', color: 0x00B3261E, align: 'kCenter', turn: 'kNone'},
     about: "The kit's text: UTF-8, aligned, turned without loss."},
  ]],
  ['Shapes of the kit', [
    {title: 'FillRoundRect', on: 'canvas', args: 'x y w h radius color', before: CANVAS,
     start: {...BOX, radius: 14, color: 0x20336699}, about: 'Anti-aliased, edges in 1/256 pixel.'},
    {title: 'OutlineRoundRect', on: 'canvas', args: 'x y w h radius width color', before: CANVAS,
     start: {...BOX, radius: 14, width: 3.5, color: 0x00336699},
     about: 'A line inside of the edge.'},
    {title: 'FillCircle', on: 'canvas', args: 'x y radius color', before: CANVAS,
     start: {x: 80, y: 60, radius: 34.5, color: 0x20336699}, about: 'A disc.'},
    {title: 'DrawCircle', on: 'canvas', args: 'x y radius width color', before: CANVAS,
     start: {x: 80, y: 60, radius: 38, width: 8, color: 0x20336699}, about: 'A ring.'},
    {title: 'DrawArc', on: 'canvas', args: 'x y radius width start sweep cap color',
     before: CANVAS, start: {x: 80, y: 60, radius: 40, width: 9, start: -130, sweep: 200,
                             cap: 'kRound', color: 0x00B3261E},
     about: 'A piece of a ring; degrees from the top, clockwise.'},
    {title: 'DrawLine of the kit', op: 'DrawLine', on: 'canvas',
     args: 'x0 y0 x1 y1 width cap color', before: CANVAS,
     start: {x0: 24, y0: 96, x1: 132, y1: 26, width: 9, cap: 'kRound', color: 0x40B3261E},
     about: 'A line of any width.'},
    {title: 'Linear gradient', op: 'FillGradient', on: 'canvas', args: 'x y w h from to',
     before: CANVAS, start: {...BOX, from: 0x00336699, to: 0xFF336699},
     about: 'A rectangle between two colours, opacity included.'},
    {title: 'Radial gradient', op: 'FillGlow', on: 'canvas', args: 'x y radius from to',
     before: CANVAS, start: {x: 80, y: 60, radius: 50, from: 0x00FFE08A, to: 0xFFB3261E},
     about: 'A disc from its centre outwards.'},
  ]],
];

const OPERATIONS = GROUPS.flatMap(([group, list]) => list.map((entry) => ({
  on: 'surface', op: entry.title, shows: 'surface', before: [], after: [], limit: () => {},
  ...entry, group, names: entry.args.split(' ').filter(Boolean),
})));

// The names of a statement's arguments.
function namesOf(on, op, count) {
  const found = OPERATIONS.find((o) => o.on === on && o.op === op && o.names.length === count) ||
      OPERATIONS.find((o) => o.on !== 'canvas' && o.op === op && o.names.length === count);
  if (!found) throw new Error(`no operation ${op} of ${count} arguments`);
  return found.names;
}

// All statements that draw an operation's picture.
function programOf(operation, values, depth) {
  const own = [operation.on, operation.op, ...operation.names.map((name) => values[name])];
  own.isOwn = true;
  return [['surface', 'New', depth, WIDTH, HEIGHT], ...PAPER, ...operation.before, own,
          ...operation.after];
}
