// Everything begins when the engine is there. `gfx` and `playground` can be used in the console.
'use strict';

loadGfx().then(async (gfx) => {
  window.gfx = gfx;
  document.getElementById('loading').remove();
  window.livePanel = new LivePanel(gfx);
  window.playground = new Playground(gfx);
  startDepths(gfx);
  window.pinned = new Pinned(gfx);
  await window.pinned.run();
  document.body.dataset.ready = 'yes';
});
