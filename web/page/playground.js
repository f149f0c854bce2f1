// The section of all operations: choose one, set its arguments, see and copy what draws it.
'use strict';

class Playground {
  constructor(gfx) {
    this.gfx = gfx;
    this.depth = 16;
    this.language = 'cpp';
    this.runner = new Runner(gfx);
    this.canvas = document.getElementById('picture');
    this.fillChoices();
    this.at = trackPixel(this.canvas, () => this.showLens());
    Object.assign(this.at, {x: 91, y: 61});  // where four colours meet
    this.select(OPERATIONS[1].title);
  }

  fillChoices() {
    const select = document.getElementById('operation');
    for (const [label, list] of GROUPS)
      select.append(element('optgroup', {label}, ...list.map(
          ({title}) => element('option', {textContent: title}))));
    select.addEventListener('change', () => this.select(select.value));
    for (const depth of [8, 16, 32]) {
      const radio = element('input', {type: 'radio', name: 'depth', value: depth,
                                      checked: depth === this.depth});
      radio.addEventListener('change', () => this.setDepth(depth));
      document.getElementById('depth').append(element('label', {}, radio, String(depth)));
    }
    document.getElementById('reset').addEventListener('click',
                                                      () => this.select(this.operation.title));
    this.tabs = [...document.querySelectorAll('[data-language]')];
    for (const tab of this.tabs) {
      tab.addEventListener('click', () => this.speak(tab.dataset.language));
      tab.addEventListener('keydown', (event) => {
        const step = {ArrowLeft: -1, ArrowRight: 1}[event.key];
        if (!step) return;
        const next = this.tabs.at((this.tabs.indexOf(tab) + step) % this.tabs.length);
        this.speak(next.dataset.language);
        next.focus();
      });
    }
    document.getElementById('copy').addEventListener('click', () => this.copy());
  }

  select(title) {
    this.operation = OPERATIONS.find((operation) => operation.title === title);
    this.values = {...this.operation.start};
    document.getElementById('operation').value = title;
    document.getElementById('about').textContent = this.operation.about;
    const place = document.getElementById('arguments');
    place.replaceChildren();
    for (const name of this.operation.names) {
      const made = controlFor(name, this.values, () => this.draw());
      if (made) place.append(element('div', {className: 'argument'}, ...made));
    }
    this.draw();
  }

  setDepth(depth) {
    this.depth = depth;
    document.querySelector(`#depth [value="${depth}"]`).checked = true;
    this.draw();
  }

  program() {
    const values = {...this.values};
    this.operation.limit(values);
    return programOf(this.operation, values, this.depth);
  }

  draw() {
    this.runner.end();
    this.runner.run(this.program());
    this.shown = this.runner.picture(this.operation.shows, this.operation.op);
    show(this.gfx, this.shown, this.canvas);
    const value = document.getElementById('value');
    value.hidden = this.operation.shows !== 'value';
    if (!value.hidden) {
      const swatch = element('i');
      swatch.style.background = '#' + word(this.runner.value).slice(4);
      value.replaceChildren(swatch, `value ${word(this.runner.value)}`);
    }
    this.showLens();
    this.speak(this.language);
  }

  showLens() {
    this.at.x = Math.min(this.at.x, this.shown.DX() - 1);
    this.at.y = Math.min(this.at.y, this.shown.DY() - 1);
    showLens(this.gfx, this.shown, this.at, document.getElementById('lens'));
  }

  speak(language) {
    this.language = language;
    for (const tab of this.tabs) {
      const isThis = tab.dataset.language === language;
      tab.setAttribute('aria-selected', isThis);
      tab.tabIndex = isThis ? 0 : -1;
    }
    const lines = listing(this.program(), language) ||
        [{text: 'The kit is C++ alone.', isOwn: false}];
    document.getElementById('lines').replaceChildren(...lines.map(
        ({text, isOwn}) => element('span', {textContent: text, className: isOwn ? 'own' : ''})));
  }

  lines(language) {
    const lines = listing(this.program(), language);
    return lines && lines.map(({text}) => text).join('\n') + '\n';
  }

  async copy() {
    const button = document.getElementById('copy');
    const text = this.lines(this.language) || '';
    try {
      await navigator.clipboard.writeText(text);
    } catch {  // pages from a folder may not use the clipboard
      const area = element('textarea', {value: text});
      document.body.append(area);
      area.select();
      document.execCommand('copy');
      area.remove();
      button.focus();
    }
    button.textContent = 'Copied';
    setTimeout(() => { button.textContent = 'Copy'; }, 1500);
  }
}
