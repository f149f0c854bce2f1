// The magnifier: five by five pixels of a surface with their colour words.
'use strict';

const LENS_REACH = 2;

function storedText(gfx, surface, x, y) {
  const digits = surface.Depth() > 16 ? 8 : surface.Depth() > 8 ? 4 : 2;
  const stored = gfx.StoredPixel(surface, x, y) >>> 0;
  return '0x' + stored.toString(16).toUpperCase().padStart(digits, '0');
}

function lensCell(gfx, surface, x, y, isHere) {
  if (x < 0 || y < 0 || x >= surface.DX() || y >= surface.DY()) return element('td');
  const color = surface.RetPixelRGB(x, y) >>> 0;
  const [r, g, b] = [color >> 16 & 255, color >> 8 & 255, color & 255];
  const cell = element('td', {className: isHere ? 'here' : '', textContent: word(color).slice(2)});
  cell.style.background = `rgb(${r} ${g} ${b})`;
  cell.style.color = 2 * r + 5 * g + b > 1000 ? '#000' : '#fff';
  return cell;
}

function showLens(gfx, surface, at, place) {
  const rows = [];
  for (let y = at.y - LENS_REACH; y <= at.y + LENS_REACH; ++y) {
    const row = element('tr');
    for (let x = at.x - LENS_REACH; x <= at.x + LENS_REACH; ++x)
      row.append(lensCell(gfx, surface, x, y, x === at.x && y === at.y));
    rows.push(row);
  }
  const text = `(${at.x}, ${at.y})  word ${word(surface.RetPixelRGB(at.x, at.y))}  stored ` +
               storedText(gfx, surface, at.x, at.y);
  place.replaceChildren(element('p', {textContent: text}), element('table', {}, ...rows));
}
