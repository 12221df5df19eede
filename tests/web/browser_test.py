#!/usr/bin/python3
"""The page in a real browser, used as people use it.

Usage: browser_test.py PROGRAM [unittest arguments]
"""

import json
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

from selenium.webdriver.common.action_chains import ActionChains
from selenium.webdriver.common.keys import Keys

from person import VIEWS, Person, Site, chromium

PROGRAM = ""
PLANS = pathlib.Path(__file__).resolve().parents[2] / "data" / "plans"
NUMBERS = "NANSI:NUMTYP=EX,NUMSE=100&&119;\n"
OFFICE = NUMBERS + "EXCCS:CAT=1,TRAF=11,SERV_D6=1;\nKSEXI:DIR=100,ITYPE=12,EQU=next,CAT=1;\n"

# What of a page people cannot read or reach: fields without a label, headings out of order, a page wider than its
# window, and text of too little contrast (4.5 to 1, or 3 to 1 where it is large).
COMPLAINTS = """
  const complaints = [];
  const shown = (element) => element.getClientRects().length > 0 && getComputedStyle(element).visibility !== 'hidden';
  for (const field of document.querySelectorAll('input:not([type=hidden]), select'))
    if (shown(field) && !field.labels.length) complaints.push('no label: ' + field.name);
  for (const button of document.querySelectorAll('button:not([aria-hidden])'))
    if (!(button.textContent.trim() || button.ariaLabel)) complaints.push('no text: ' + button.outerHTML);
  let level = 0;
  for (const heading of document.querySelectorAll('h1, h2, h3, h4')) {
    const own = Number(heading.tagName[1]);
    if (own > level + 1) complaints.push('heading out of order: ' + heading.textContent);
    level = own;
  }
  if (document.querySelectorAll('h1').length !== 1) complaints.push('not one first heading');
  for (const cell of document.querySelectorAll('th:not([scope])')) complaints.push('no scope: ' + cell.textContent);
  for (const table of document.querySelectorAll('table')) if (!table.caption) complaints.push('a table without caption');
  const ids = Array.from(document.querySelectorAll('[id]'), (element) => element.id);
  for (const id of ids) if (ids.indexOf(id) !== ids.lastIndexOf(id)) complaints.push('twice: ' + id);
  if (document.documentElement.scrollWidth > innerWidth)
    complaints.push('wider than the window: ' + document.documentElement.scrollWidth);
  const channels = (color) => (color.match(/[0-9.]+/g) || [0, 0, 0, 0]).map(Number);
  const behind = (element) => {
    for (; element; element = element.parentElement) {
      const color = channels(getComputedStyle(element).backgroundColor);
      if (color.length < 4 || color[3] > 0) return color;
    }
    return [255, 255, 255];
  };
  const light = (color) => {
    const [r, g, b] = color.map((c) => (c / 255 <= 0.04045 ? c / 255 / 12.92 : ((c / 255 + 0.055) / 1.055) ** 2.4));
    return 0.2126 * r + 0.7152 * g + 0.0722 * b;
  };
  for (const element of document.querySelectorAll('body *')) {
    const own = Array.from(element.childNodes).some((node) => node.nodeType === 3 && node.textContent.trim());
    if (!own || !shown(element) || element.closest('.skip')) continue;
    const style = getComputedStyle(element);
    const [one, other] = [light(channels(style.color)), light(behind(element))];
    const contrast = (Math.max(one, other) + 0.05) / (Math.min(one, other) + 0.05);
    const large = parseFloat(style.fontSize) >= 24 || (parseFloat(style.fontSize) >= 18.7 && style.fontWeight >= 700);
    if (contrast < (large ? 3 : 4.5)) complaints.push(`contrast ${contrast.toFixed(1)}: ${element.textContent}`);
  }
  return complaints;
"""


def program(*arguments, text=None):
    ran = subprocess.run([PROGRAM, *map(str, arguments)], input=text, capture_output=True, text=True)
    if ran.returncode != 0:
        raise AssertionError(ran.stdout + ran.stderr)
    return ran.stdout


class BrowserTest(unittest.TestCase):
    """Each test has an exchange and a page of its own; the browser is one."""

    @classmethod
    def setUpClass(cls):
        cls.browser = chromium()
        cls.made = tempfile.TemporaryDirectory()
        cls.empty = pathlib.Path(cls.made.name) / "empty.cbx"
        program("new", cls.empty, "--release", "R7")

    @classmethod
    def tearDownClass(cls):
        cls.browser.quit()
        cls.made.cleanup()

    def open(self, plan="", *arguments):
        """Opens the page of an exchange that a plan has made."""
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.file = pathlib.Path(folder.name) / "office.cbx"
        shutil.copy(self.empty, self.file)
        if plan:
            program("apply", self.file, "-", text=plan)
        self.site = Site(PROGRAM, self.file, *arguments)
        self.addCleanup(self.site.close)
        self.browser.get_log("browser")
        return Person(self.browser, self.site)


class Office(BrowserTest):
    def test_a_person_sets_up_ten_extensions_with_keys(self):
        person = self.open()
        self.assertEqual(person.heading(), "Commands")
        person.fill("NANSI", NUMTYP="EX", NUMSE="100&&119")
        person.press("Show what it will do")
        self.assertIn("Nothing is done yet.", person.text())
        person.press("Do it")
        self.assertIn("Done, and kept as state 1.", person.text())
        person.add("EXCCS", CAT="1", TRAF="11", SERV_D6="1", CDIV_D1="1", ROC_D2="1")
        # Refused: nobody has said what the extensions may do.
        person.fill("KSEXI", DIR="next:10", ITYPE="12", EQU="next")
        person.press("Show what it will do")
        self.assertIn("The exchange refuses this", person.text())
        self.assertIn("give CAT", person.about("CAT"))
        self.assertEqual(person.value("DIR"), "next:10")
        person.type("CAT", "1")
        person.press("Show what it will do")
        self.assertIn("next: DIR=100&&109", person.text())
        person.press("Do it")
        self.assertIn("Done, and kept as state 3.", person.text())
        person.add("KSFKC", DIR="100&&109", KEY="5", FCN="PCK")
        # A mistake is taken back, and the right keys take its place.
        person.go("history")
        person.press("Undo...")
        self.assertIn("This state is taken back:", person.text())
        person.press("Take back")
        self.assertNotIn("KEY=5", program("generate", self.file))
        person.add("KSFKC", DIR="100&&109", KEY="6", FCN="CBK")
        person.go("lines?since=0")
        self.assertEqual((person.text().count("+ KSEXI:DIR="), person.text().count("KEY=6,FCN=CBK")), (10, 10))
        person.go("plan")
        self.assertIn("KSFKC:DIR=100&&109,KEY=6,FCN=CBK;", person.text())
        self.assertNotIn("KEY=5", person.text())
        lines = program("generate", self.file)
        self.assertEqual((lines.count("KSEXI:DIR="), lines.count("KEY=6,FCN=CBK"), lines.count("KEY=5")), (10, 10, 0))
        person.go("records?command=KSEXI")
        self.assertIn("10 records", person.text())

    def test_values_are_offered_while_one_types_and_the_keyboard_is_enough(self):
        person = self.open(NUMBERS)
        person.go("form?command=KSEXI")
        person.field("DIR").send_keys("11")
        person.until(lambda: [option.text for option in person.all("[role=option]")] == [str(n) for n in range(110, 120)])
        self.assertEqual(person.field("DIR").get_attribute("aria-expanded"), "true")
        person.keys(Keys.ARROW_DOWN, Keys.ARROW_DOWN, Keys.ENTER)
        person.settled()
        self.assertEqual(person.value("DIR"), "111")
        self.assertEqual(self.browser.switch_to.active_element.get_attribute("id"), "v.DIR")
        person.keys("&", Keys.ARROW_DOWN)
        person.until(lambda: person.all("[role=option]"))
        person.keys(Keys.ESCAPE)
        self.assertEqual(person.all("[role=option]"), [])
        person.type("DIR", "111")
        # The enter key means the first button.
        person.page_that_comes(lambda: person.field("DIR").send_keys(Keys.ENTER))
        self.assertIn("The exchange refuses this", person.text())

    def test_what_is_typed_while_a_check_is_on_its_way_stays(self):
        person = self.open(NUMBERS)
        person.go("form?command=KSEXI")
        person.field("DIR").click()
        person.keys("100", Keys.TAB, Keys.TAB, "12", Keys.TAB, Keys.TAB, "1")
        person.settled()
        self.assertEqual([person.value(name) for name in ("DIR", "ITYPE", "ACCTYP")], ["100", "12", "1"])

    def test_a_button_that_is_pressed_slowly_is_pressed(self):
        """To press it leaves the field, which is checked meanwhile."""
        person = self.open(OFFICE)
        for text, heading in (("Show what it will do", "KSEXI: change DIR=100, what it will do"),
                              ("Change at once", "KSEXI: change DIR=100")):
            person.go("form?command=KSEXI&of=DIR%3D100")
            person.field("LANG").send_keys("2")
            person.until(lambda: person.all("[role=option]"))
            person.keys(Keys.ESCAPE)  # the values lie over the buttons
            button = next(each for each in person.all(".actions button") if each.text == text)
            press = ActionChains(self.browser).move_to_element(button).click_and_hold().pause(0.3).release()
            person.page_that_comes(press.perform)
            self.assertEqual(person.heading(), heading)
        self.assertIn("edit KSEXI DIR=100:LANG=2;", program("history", self.file, "2", "--plans"))

    def test_who_comes_back_finds_what_was_typed(self):
        person = self.open(NUMBERS)
        person.fill("KSEXI", DIR="105", ITYPE="12")
        person.press("Records")
        person.page_that_comes(self.browser.back)
        person.until(lambda: person.value("DIR") == "105")
        person.settled()
        self.assertEqual(person.value("ITYPE"), "12")
        # What was done is done once, however often its page is loaded.
        person.add("NANSI", NUMTYP="EX", NUMSE="300")
        person.page_that_comes(self.browser.refresh)
        self.assertIn("Done, and kept as state 2.", person.text())

    def test_hostile_values_do_nothing(self):
        hostile = '<img src=x onerror="document.title=1"><script>document.title=1</script>\'"&;,'
        person = self.open()
        person.go("form?command=KSEXI")
        for field in person.all("#form input[type=text]"):
            self.browser.execute_script("arguments[0].value = arguments[1]", field, hostile)
        person.type("DIR", hostile)
        self.assertEqual(person.value("DIR"), hostile)
        person.press("Show what it will do")
        self.assertEqual(self.browser.title, "KSEXI: add - office.cbx")
        self.assertEqual(person.all("main img, main script"), [])

    def test_two_tabs_do_not_overwrite_each_other(self):
        person = self.open(OFFICE)
        person.go("form?command=KSEXI&of=DIR%3D100")
        first = self.browser.current_window_handle
        self.browser.switch_to.new_window("tab")
        person.go("form?command=KSEXI&of=DIR%3D100")
        person.type("CUST", "1")
        person.press("Change at once")
        self.browser.close()
        self.browser.switch_to.window(first)
        person.type("LANG", "2")
        self.assertIn("The exchange has changed since this form was opened.", person.text())
        person.press("Change at once")
        self.assertIn("so nothing was done", person.text())
        self.assertEqual((person.value("CUST"), person.value("LANG")), ("1", "2"))
        person.press("Change at once")
        self.assertIn("Done", person.text())
        self.assertIn("edit KSEXI DIR=100:LANG=2;", program("history", self.file, "3", "--plans"))

    def test_a_file_that_is_only_read_has_no_button_that_changes_it(self):
        person = self.open(OFFICE, "--read-only")
        person.go("form?command=KSEXI&of=DIR%3D100")
        self.assertEqual([button.text for button in person.all(".actions button") if button.is_displayed()],
                         ["Show what it will do"])


# How long the browser waits for a form, and for the check of a value: the best of ten, in milliseconds.
WAITS = """
  const done = arguments[arguments.length - 1];
  const best = async (ask) => {
    let best = Infinity;
    for (let i = 0; i < 10; ++i) {
      const begun = performance.now();
      await (await ask()).text();
      best = Math.min(best, performance.now() - begun);
    }
    return best;
  };
  const fields = new URLSearchParams(new FormData(document.getElementById('form')));
  const sent = {method: 'POST', body: fields, headers: {'X-Part': '1'}};
  (async () => done([await best(() => fetch(location.href)), await best(() => fetch('/form', sent))]))();
"""


class Speed(BrowserTest):
    """What a person waits for does not grow with the exchange."""

    def exchange(self, folder, extensions):
        boards = [{"lim": 1 + board // 64, "magazine": board % 64 // 16, "slot": board % 16, "type": "77"}
                  for board in range(2 + extensions // 32)]
        plant = folder / "plant.json"
        plant.write_text(json.dumps({
            "name": "large", "locations": [{"location": "HQ"}], "customers": [{"cust": "1"}], "categories": 32,
            "lims": [{"lim": lim, "location": "HQ"} for lim in sorted({board["lim"] for board in boards})],
            "boards": boards}))
        file = folder / f"{extensions}.cbx"
        program("new", file, "--release", "R8", "--plant", plant)
        program("apply", file, "-", text="NANSI:NUMTYP=EX,NUMSE=10000&&19999;\n"
                f"KSEXI:DIR=10000&&{9999 + extensions},ITYPE=9,EQU=next,TRAF=00,SERV=000000000,CDIV=000000000,ROC=010000;\n")
        return file

    def test_a_form_opens_and_is_checked_as_quickly_in_a_large_exchange(self):
        waits = []
        with tempfile.TemporaryDirectory() as folder:
            for extensions in (20, 2000):
                site = Site(PROGRAM, self.exchange(pathlib.Path(folder), extensions))
                self.addCleanup(site.close)
                person = Person(self.browser, site)
                person.fill("KSEXI", DIR="19990", ITYPE="9", TRAF="00")
                waits.append(self.browser.execute_async_script(WAITS))
        for what, small, large in zip(("form", "check"), *waits):
            with self.subTest(what=what, small=small, large=large):
                self.assertLess(large, 2.5 * small)


class Views(BrowserTest):
    """Every main view, in three widths, light and dark."""

    def test_each_can_be_read_and_reached_and_complains_of_nothing(self):
        person = self.open("".join(path.read_text() for path in (PLANS / "example.plan", PLANS / "extensions.plan")))
        for name, come in VIEWS.items():
            person.window(1280, 800)
            come(person)
            for width, scheme in ((1280, "light"), (1280, "dark"), (768, "light"), (320, "light")):
                person.window(width, 800, scheme)
                with self.subTest(view=name, width=width, scheme=scheme):
                    self.assertEqual(self.browser.execute_script(COMPLAINTS), [])
        told = [entry["message"] for entry in self.browser.get_log("browser")]
        self.assertEqual(told, [])


if __name__ == "__main__":
    PROGRAM = str(pathlib.Path(sys.argv.pop(1)).resolve())
    unittest.main()
