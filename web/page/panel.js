// The live panel: drawn at the display's rate, timed, with the damage of each frame.
'use strict';

class LivePanel {
  constructor(gfx) {
    this.gfx = gfx;
    this.panel = new gfx.Panel();
    this.canvas = document.getElementById('panel-canvas');
    this.overlay = document.getElementById('panel-damage').getContext('2d');
    this.outline = document.getElementById('panel-outline');
    this.time = 0;
    this.last = null;
    this.forget();
    this.isPaused = matchMedia('(prefers-reduced-motion: reduce)').matches;
    const button = document.getElementById('panel-pause');
    const say = () => {
      button.textContent = this.isPaused ? 'Go on' : 'Pause';
      button.setAttribute('aria-pressed', this.isPaused);
    };
    button.addEventListener('click', () => {
      this.isPaused = !this.isPaused;
      say();
      if (!this.isPaused) this.go();
    });
    say();
    this.frame(0);
    if (!this.isPaused) this.go();
  }

  forget() {
    this.sums = {frames: 0, drawing: 0, copying: 0, pixels: 0, boxes: 0, since: performance.now()};
  }

  go() {
    this.last = null;
    this.forget();
    requestAnimationFrame((now) => this.tick(now));
  }

  tick(now) {
    if (this.isPaused) return;
    // A page that was hidden goes on where it was.
    this.frame(this.last === null ? 0 : Math.min(now - this.last, 100) / 1000);
    this.last = now;
    requestAnimationFrame((next) => this.tick(next));
  }

  frame(seconds) {
    this.time += seconds;
    const start = performance.now();
    this.panel.Advance(this.time);
    const drawn = performance.now();
    const boxes = [];
    for (let i = 0; i < this.panel.DamageCount(); ++i) boxes.push(this.panel.Damage(i));
    show(this.gfx, this.panel.Screen(), this.canvas, boxes);
    const copied = performance.now();
    this.markDamage(boxes);
    const sums = this.sums;
    sums.frames += 1;
    sums.drawing += drawn - start;
    sums.copying += copied - drawn;
    sums.boxes += boxes.length;
    sums.pixels += boxes.reduce((sum, {w, h}) => sum + w * h, 0);
    if (copied - sums.since > 500) this.report(copied);
  }

  markDamage(boxes) {
    this.overlay.clearRect(0, 0, 480, 272);
    if (!this.outline.checked) return;
    this.overlay.strokeStyle = '#ff4fa3';
    for (const {x, y, w, h} of boxes) this.overlay.strokeRect(x + 0.5, y + 0.5, w - 1, h - 1);
  }

  report(now) {
    const {frames, drawing, copying, pixels, boxes, since} = this.sums;
    const put = (id, text) => { document.getElementById(id).textContent = text; };
    put('panel-time', `${(drawing / frames).toFixed(2)} ms`);
    put('panel-copy', `${(copying / frames).toFixed(2)} ms`);
    put('panel-rate', (1000 * frames / (now - since)).toFixed(0));
    put('panel-share', `${(100 * pixels / frames / (480 * 272)).toFixed(0)} % in ` +
                       `${(boxes / frames).toFixed(1)} boxes`);
    this.forget();
  }
}
