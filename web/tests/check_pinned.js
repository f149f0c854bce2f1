// The pinned drawing in WebAssembly outside of a browser.
// Usage: node check_pinned.js gfx_playground.js checksums.txt
'use strict';

// The module would fetch its own code, which newer programs refuse for what it holds itself.
delete globalThis.fetch;
const [modulePath, checksumsPath] = process.argv.slice(2).map((p) => require('path').resolve(p));
const lines = require('fs').readFileSync(checksumsPath, 'utf8').trim().split('\n');

require(modulePath)().then((gfx) => {
  const drawing = new gfx.PinnedDrawing();
  let done = 0;
  for (const line of lines) {
    const [count, expected] = line.split(' ');
    drawing.Run(Number(count) - done);
    done = Number(count);
    if (drawing.Checksum() !== expected)
      throw new Error(`after ${count}: expected ${expected}, got ${drawing.Checksum()}`);
  }
  console.log(`pinned drawing: ${lines.length} checksums the same, ${done} operations`);
}).catch((error) => {
  console.error(error);
  process.exit(1);
});
