// Draws the pinned drawing in slices and compares its checksums with those on file.
'use strict';

const SLICE = 10000;

class Pinned {
  constructor(gfx) {
    this.gfx = gfx;
    this.button = document.getElementById('pinned-run');
    this.button.addEventListener('click', () => this.run());
  }

  // Ends with whether all checksums were those on file.
  async run() {
    this.button.disabled = true;
    const rows = document.getElementById('pinned-rows');
    rows.replaceChildren();
    const drawing = new this.gfx.PinnedDrawing();
    const start = performance.now();
    let same = 0;
    for (const [count, expected] of CHECKSUMS) {
      drawing.Run(SLICE);
      const computed = drawing.Checksum();
      const isSame = computed === expected;
      same += isSame;
      rows.append(element('tr', {},
          element('td', {textContent: count.toLocaleString('en')}),
          element('td', {textContent: computed}), element('td', {textContent: expected}),
          element('td', {textContent: isSame ? 'same' : 'differs',
                         className: isSame ? 'same' : 'differs'})));
      await new Promise((resolve) => setTimeout(resolve));
    }
    drawing.delete();
    this.button.disabled = false;
    const seconds = ((performance.now() - start) / 1000).toFixed(1);
    document.getElementById('pinned-state').textContent =
        `${same} of ${CHECKSUMS.length} checksums the same, in ${seconds} s`;
    return same === CHECKSUMS.length;
  }
}
