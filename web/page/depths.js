// One picture on surfaces of three depths, with the pixel under the pointer in each.
'use strict';

function drawDepthScene(gfx, surface, font, alpha) {
  const canvas = new gfx.Canvas(surface);
  surface.RectFill(0, 0, WIDTH, HEIGHT, 0x00F4EBDD);
  canvas.FillGradient(0, 0, WIDTH, 60, 0x002C6FBB, 0x00F2D16B);
  canvas.FillGlow(116, 40, 34, 0x00FFFFFF, 0xFFFFE08A);
  for (let i = 0; i < 6; ++i)
    surface.RectFill(8 + 24 * i, 68, 22, 14, [0xC8404E, 0xE4A13A, 0x6BAA4F, 0x2F9E9E, 0x3B5FC0,
                                              0x7D4FA3][i]);
  canvas.FillCircle(52, 58, 30, ((alpha << 24) | 0xB3261E) >>> 0);
  surface.DrawAALine(0, 118, 159, 86, 0x0033424F);
  surface.DrawLine(0, 112, 159, 80, 0x0033424F, 6, 3);
  gfx.DrawString(surface, font, 8, 108, 'Depths', 0x00222222, 0, 0);
  canvas.delete();
}

function startDepths(gfx) {
  const font = new gfx.GfxFontCache();
  font.OpenFace('DejaVuSans.ttf', 20, true);
  const values = {alpha: 112};
  const views = [8, 16, 32].map((depth) => {
    const surface = gfx.GfxSurface.New(depth);
    surface.Initialise(WIDTH, HEIGHT);
    const canvas = element('canvas', {width: WIDTH, height: HEIGHT, tabIndex: 0});
    canvas.setAttribute('role', 'img');
    canvas.setAttribute('aria-label', `The picture at ${depth} bits a pixel`);
    return {depth, surface, canvas, text: element('span')};
  });
  let at = {x: 52, y: 58};
  const read = () => {
    for (const {surface, text} of views)
      text.textContent = `(${at.x}, ${at.y}) word ${word(surface.RetPixelRGB(at.x, at.y))}\n` +
                         `stored ${storedText(gfx, surface, at.x, at.y)}`;
  };
  const draw = () => {
    for (const {surface, canvas} of views) {
      drawDepthScene(gfx, surface, font, values.alpha);
      show(gfx, surface, canvas);
    }
    read();
  };
  const range = element('input', {type: 'range', min: 0, max: 255});
  range.value = values.alpha;
  range.addEventListener('input', () => { values.alpha = Number(range.value); draw(); });
  document.getElementById('depth-arguments').append(
      element('label', {}, 'alpha of the disc', range));
  const names = {8: 'grey', 16: '5-6-5', 32: 'colour and alpha'};
  for (const {depth, canvas, text} of views) {
    trackPixel(canvas, (x, y) => { at = {x, y}; read(); });
    document.getElementById('depth-pictures').append(element('figure', {}, canvas,
        element('figcaption', {}, element('b', {textContent: `${depth} bits, ${names[depth]}`}),
                text)));
  }
  draw();
}
