// Runs a program, a list of statements, on the engine.
'use strict';

class Runner {
  constructor(gfx) {
    this.gfx = gfx;
    this.objects = {};
    this.owned = [];
    this.value = null;
  }

  keep(name, object) {
    this.objects[name] = object;
    this.owned.push(object);
    return object;
  }

  bytes(name, values) {
    this.keep(name, new this.gfx.Buffer(values.length)).View().set(values);
  }

  argument(name, value) {
    if (ARGUMENTS[name] === 'object' || name === 'src')
      return value === 'null' ? null : this.objects[value];
    if (name === 'which') return this.gfx.ColorPlane[value];
    if (['angle'].includes(name)) return Number(value);
    if (['cap', 'align', 'turn'].includes(name)) return ARGUMENTS[name].indexOf(value);
    return value;
  }

  step([on, op, ...args]) {
    if (op === 'New') {
      this.keep(on, this.gfx.GfxSurface.New(args[0])).Initialise(args[1], args[2]);
    } else if (op === 'NewBytes') {
      this.bytes(on, new Uint8Array(args[0]));
    } else if (op === 'NewBits') {
      this.bytes(on, args[0]);
    } else if (op === 'NewRamp') {
      this.bytes(on, Uint8Array.from({length: 3 * args[0]},
                                     (_, i) => Math.floor(i / 3) * (i % 3 + 1)));
    } else if (op === 'NewFont') {
      this.keep(on, new this.gfx.GfxFontCache());
    } else if (op === 'NewCanvas') {
      this.keep(on, new this.gfx.Canvas(this.objects.surface));
    } else {
      const names = namesOf(on, op, args.length);
      const given = args.map((value, i) => this.argument(names[i], value));
      if (op === 'SetPixelLineMono') given.push(0);
      if (on === 'kit') this.gfx[op](this.objects.surface, this.objects.font, ...given);
      else this.value = this.objects[on][op](...given);
    }
  }

  run(program) {
    for (const statement of program) this.step(statement);
    return this;
  }

  // The surface that pictures what an operation has left.
  picture(shows, op) {
    const {surface, plane, buffer, dest} = this.objects;
    if (shows === 'plane') return plane;
    if (shows === 'buffer') return this.pictureOfBits(buffer);
    if (shows === 'dest') return this.pictureOfDisplay(dest, op === 'QuickBltTo555');
    return surface;
  }

  pictureOfBits(buffer) {
    const shown = this.keep('shown', this.gfx.GfxSurface.New(16));
    shown.Initialise(WIDTH, HEIGHT);
    shown.RectFill(0, 0, WIDTH, HEIGHT, 0x00FFFFFF);
    for (let y = 0; y < HEIGHT; ++y)
      shown.SetPixelLineMono(0, y, WIDTH, 0, buffer, y * BUFFER_PITCH);
    return shown;
  }

  pictureOfDisplay(dest, is555) {
    const shown = this.keep('shown', this.gfx.GfxSurface.New(16));
    shown.InitialiseOver(WIDTH, HEIGHT, dest, 2 * WIDTH);
    if (!is555) return shown;
    const wide = this.keep('wide', this.gfx.GfxSurface.New(32));
    wide.Initialise(WIDTH, HEIGHT);
    const words = dest.View();
    const eight = (five) => five << 3 | five >> 2;
    for (let i = 0; i < WIDTH * HEIGHT; ++i) {
      const word = words[2 * i] | words[2 * i + 1] << 8;
      wide.SetPixelRGB(i % WIDTH, Math.floor(i / WIDTH),
                       eight(word >> 10 & 31) << 16 | eight(word >> 5 & 31) << 8 |
                           eight(word & 31));
    }
    return wide;
  }

  // Backwards: a canvas goes before its surface, a surface before the memory below it.
  end() {
    for (const object of this.owned.reverse()) object.delete();
    this.owned = [];
    this.objects = {};
  }
}

// Puts a surface on a canvas element of the same size.
function show(gfx, surface, canvas, boxes) {
  const [w, h] = [surface.DX(), surface.DY()];
  if (canvas.width !== w || canvas.height !== h) [canvas.width, canvas.height] = [w, h];
  const context = canvas.getContext('2d');
  for (const box of boxes || [{x: 0, y: 0, w, h}]) {
    if (box.w <= 0 || box.h <= 0) continue;
    const pixels = gfx.PixelsOf(surface, box.x, box.y, box.w, box.h);
    context.putImageData(new ImageData(new Uint8ClampedArray(pixels), box.w, box.h), box.x, box.y);
  }
}
