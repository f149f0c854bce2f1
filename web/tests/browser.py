"""The page in a browser without a window, and what is checked of it besides pictures."""

import os
import time

from selenium import webdriver
from selenium.webdriver.common.action_chains import ActionChains
from selenium.webdriver.common.by import By
from selenium.webdriver.common.keys import Keys
from selenium.webdriver.support.ui import WebDriverWait


def check(condition, message):
    if not condition:
        raise SystemExit(f"failed: {message}")


class Browser:
    def __init__(self, address):
        options = webdriver.ChromeOptions()
        options.add_argument("--headless=new")
        options.add_argument("--force-color-profile=srgb")
        if os.getuid() == 0:  # as in a container, where there is no sandbox to be had
            options.add_argument("--no-sandbox")
        options.set_capability("goog:loggingPrefs", {"browser": "ALL"})
        self.driver = webdriver.Chrome(options=options)
        self.address = address

    def __enter__(self):
        self.open(self.address)
        return self

    def open(self, address):
        self.driver.get(address)

    def wait(self, condition, message):
        """Until the condition holds or the page complains."""
        def holds(_):
            self.check_console()
            return condition()

        WebDriverWait(self.driver, 120).until(holds, message)

    def __exit__(self, *_):
        self.driver.quit()

    def wait_until_ready(self):
        self.wait(lambda: self.run("return document.body.dataset.ready") == "yes",
                  "the page did not become ready")

    def run(self, script, *arguments):
        return self.driver.execute_script(script, *arguments)

    def text(self, name):
        return self.driver.find_element(By.ID, name).text

    def press(self, name, key, times):
        self.driver.find_element(By.ID, name).send_keys(getattr(Keys, key) * times)

    def set_size(self, width, height, scale=1):
        self.driver.execute_cdp_cmd("Emulation.setDeviceMetricsOverride", {
            "width": width, "height": height, "deviceScaleFactor": scale, "mobile": width < 600})

    def check_panel(self):
        """The panel goes on, and pausing stops it; what it repairs piece by piece is whole."""
        advance = "return livePanel.time"
        first = self.run(advance)
        self.wait(lambda: self.run(advance) > first, "the panel stands still")
        self.run("document.getElementById('panel-pause').click()")
        differing = self.run("""
            const fresh = new gfx.Panel();
            let differing = -1;
            for (let i = 0; i < 200; ++i) livePanel.frame(0.05 + (i % 7) / 20);
            fresh.Advance(livePanel.time);
            const pixels = (panel) => Uint8Array.from(gfx.PixelsOf(panel.Screen(), 0, 0, 480, 272));
            const [a, b] = [pixels(livePanel.panel), pixels(fresh)];
            const shown = livePanel.canvas.getContext('2d').getImageData(0, 0, 480, 272).data;
            const count = a.filter((byte, i) => byte !== b[i] || byte !== shown[i]).length;
            fresh.delete();
            return count;""")
        check(differing == 0, f"panel: {differing} bytes differ from one that was drawn at once")
        self.run("document.getElementById('panel-pause').click()")

    def check_keyboard(self):
        """Tab reaches every control; of radio buttons and of tabs the chosen one."""
        self.run("playground.select('RectFillBlend, masked'); window.scrollTo(0, 0);"
                 "document.activeElement.blur()")
        wanted = set(self.run("""
            const all = 'button, select, input, figure canvas, #picture, pre';
            return [...document.querySelectorAll(all)]
                .filter((e) => e.type !== 'radio' || e.checked)
                .filter((e) => e.getAttribute('aria-selected') !== 'false')
                .map((e, i) => e.dataset.stop = String(i));"""))
        reached = set()
        for _ in range(3 * len(wanted) + 20):
            ActionChains(self.driver).send_keys(Keys.TAB).perform()
            reached.add(self.run("return document.activeElement.dataset.stop"))
        check(wanted <= reached, f"the keyboard does not reach {wanted - reached}")

    def check_widths(self, widths):
        for width in widths:
            self.set_size(width, 800)
            wide = self.run("return document.documentElement.scrollWidth")
            check(wide <= width, f"at {width} pixels the page is {wide} wide")
            hidden = self.run("""
                return [...document.querySelectorAll('section *:not(pre)')]
                    .filter((e) => e.clientWidth && e.scrollWidth > e.clientWidth + 1)
                    .map((e) => e.id || e.className || e.tagName);""")
            check(not hidden, f"at {width} pixels these are cut off: {hidden}")

    def screenshots(self, folder, name, size):
        """What is seen at first, and the whole page."""
        self.set_size(*size)
        self.run("playground.setDepth(16); playground.select('RectFillBlend');"
                 "Object.assign(playground.at, {x: 91, y: 61}); playground.showLens();"
                 "window.scrollTo(0, 0); document.activeElement.blur()")
        time.sleep(1.5)  # for the readings beside the panel
        self.driver.save_screenshot(str(folder / f"{name}.png"))
        height = self.run("return document.documentElement.scrollHeight")
        self.set_size(size[0], height)
        self.driver.save_screenshot(str(folder / f"{name}-whole.png"))

    def check_console(self):
        log = [entry for entry in self.driver.get_log("browser")
               if entry["level"] in ("WARNING", "SEVERE")]
        check(not log, f"the console says {log}")

    def report(self):
        print(f"panel: drawing {self.text('panel-time')}, to the page {self.text('panel-copy')}, "
              f"{self.text('panel-rate')} frames a second, damage {self.text('panel-share')}")
