#!/usr/bin/python3
"""The page in a real browser, used as people use it. Runs with Debian's Chromium, its driver and python3-selenium.

Usage: browser_test.py PROGRAM [unittest arguments]
"""

import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

from selenium import webdriver
from selenium.webdriver.common.action_chains import ActionChains
from selenium.webdriver.chrome.service import Service
from selenium.webdriver.common.by import By
from selenium.webdriver.common.keys import Keys
from selenium.webdriver.support.ui import WebDriverWait

PROGRAM = ""


def chromium(width=1200, height=900):
    options = webdriver.ChromeOptions()
    for argument in ("--headless=new", "--no-sandbox", "--disable-gpu", "--disable-dev-shm-usage", "--no-proxy-server",
                     "--lang=en", f"--window-size={width},{height}"):
        options.add_argument(argument)
    options.set_capability("goog:loggingPrefs", {"browser": "ALL"})
    return webdriver.Chrome(service=Service("/usr/bin/chromedriver"), options=options)


class Site:
    """cordboard web on a file, as long as the block lasts."""

    def __init__(self, file, *arguments):
        self.process = subprocess.Popen([PROGRAM, "web", str(file), *arguments], stdout=subprocess.PIPE,
                                        stderr=subprocess.PIPE, text=True)
        self.entrance = self.process.stdout.readline().strip()
        if not self.entrance:
            raise RuntimeError(self.process.stderr.read())
        self.root = self.entrance[:self.entrance.index("?")]

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.terminate()
        self.process.communicate(timeout=20)


class BrowserTest(unittest.TestCase):
    """Each test has an exchange and a page of its own; the browser is one."""

    @classmethod
    def setUpClass(cls):
        cls.browser = chromium()

    @classmethod
    def tearDownClass(cls):
        cls.browser.quit()

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.file = self.folder / "office.cbx"
        self.program("new", self.file, "--release", "R7")

    def program(self, *arguments, code=0, text=None):
        ran = subprocess.run([PROGRAM, *map(str, arguments)], input=text, capture_output=True, text=True)
        self.assertEqual(ran.returncode, code, ran.stdout + ran.stderr)
        return ran.stdout

    def apply(self, plan):
        self.program("apply", self.file, "-", text=plan)

    def open(self, *arguments):
        site = Site(self.file, *arguments)
        self.addCleanup(site.__exit__)
        self.site = site
        self.browser.get(site.entrance)
        return site

    # What a person does.

    def go(self, path):
        self.browser.get(self.site.root + path)

    def settled(self):
        WebDriverWait(self.browser, 20, 0.02).until(
            lambda browser: not browser.find_elements(By.CSS_SELECTOR, "#filled[aria-busy]"))

    def field(self, name):
        return self.browser.find_element(By.ID, "v." + name)

    def type(self, name, value):
        """Types over what the field has in it, and leaves it."""
        field = self.field(name)
        for summary in field.find_elements(By.XPATH, "ancestor::details[not(@open)]/summary"):
            summary.click()
        field.send_keys(Keys.CONTROL, "a")
        field.send_keys(value or Keys.DELETE)
        self.settled()
        field.send_keys(Keys.TAB)
        self.settled()

    def value(self, name):
        return self.field(name).get_attribute("value")

    def about(self, name):
        return self.browser.find_element(By.ID, "about." + name).text

    def press(self, text):
        """Presses a button or follows a link, and waits for the page that comes."""
        main = self.browser.find_element(By.ID, "main")
        here = self.browser.find_element(By.TAG_NAME, "html")
        main.find_element(By.XPATH, f'.//*[self::button or self::a][normalize-space()="{text}"]').click()
        WebDriverWait(self.browser, 20, 0.02).until(
            lambda browser: browser.find_element(By.TAG_NAME, "html") != here)

    def text(self):
        return self.browser.find_element(By.ID, "main").text

    def heading(self):
        return self.browser.find_element(By.TAG_NAME, "h1").text

    def add(self, command, **values):
        self.go("form?command=" + command)
        for name, value in values.items():
            self.type(name, value)
        self.press("Show what it will do")


class Office(BrowserTest):
    def test_a_person_sets_up_ten_extensions_with_keys(self):
        self.open()
        self.assertEqual(self.heading(), "Commands")
        self.add("NANSI", NUMTYP="EX", NUMSE="100&&119")
        self.assertIn("Nothing is done yet.", self.text())
        self.press("Do it")
        self.assertIn("Done, and kept as state 1.", self.text())
        self.add("EXCCS", CAT="1", TRAF="11", SERV_D6="1", CDIV_D1="1", ROC_D2="1")
        self.press("Do it")
        # Refused: nobody has said what the extensions may do.
        self.add("KSEXI", DIR="next:10", ITYPE="12", EQU="next")
        self.assertIn("The exchange refuses this", self.text())
        self.assertIn("give CAT", self.about("CAT"))
        self.assertEqual(self.value("DIR"), "next:10")
        self.type("CAT", "1")
        self.press("Show what it will do")
        self.assertIn("next: DIR=100&&109", self.text())
        self.press("Do it")
        self.assertIn("Done, and kept as state 3.", self.text())
        self.add("KSFKC", DIR="100&&109", KEY="5", FCN="PCK")
        self.press("Do it")
        lines = self.program("generate", self.file)
        self.assertEqual((lines.count("KSEXI:DIR="), lines.count("KEY=5,FCN=PCK")), (10, 10))

    def test_values_are_offered_while_one_types_and_the_keyboard_is_enough(self):
        self.apply("NANSI:NUMTYP=EX,NUMSE=100&&119;\n")
        self.open()
        self.go("form?command=KSEXI")
        field = self.field("DIR")
        field.send_keys("11")
        WebDriverWait(self.browser, 20, 0.02).until(
            lambda browser: [option.text for option in browser.find_elements(By.CSS_SELECTOR, "[role=option]")] ==
            [str(number) for number in range(110, 120)])
        self.assertEqual(field.get_attribute("aria-expanded"), "true")
        field.send_keys(Keys.ARROW_DOWN, Keys.ARROW_DOWN, Keys.ENTER)
        self.settled()
        self.assertEqual(self.value("DIR"), "111")
        self.assertEqual(self.browser.switch_to.active_element.get_attribute("id"), "v.DIR")
        self.browser.switch_to.active_element.send_keys("&", Keys.ARROW_DOWN)
        WebDriverWait(self.browser, 20, 0.02).until(
            lambda browser: browser.find_elements(By.CSS_SELECTOR, "[role=option]"))
        self.browser.switch_to.active_element.send_keys(Keys.ESCAPE)
        self.assertEqual(self.browser.find_elements(By.CSS_SELECTOR, "[role=option]"), [])
        self.type("DIR", "111")
        # The enter key means the first button.
        here = self.browser.find_element(By.TAG_NAME, "html")
        self.field("DIR").send_keys(Keys.ENTER)
        WebDriverWait(self.browser, 20, 0.02).until(lambda browser: browser.find_element(By.TAG_NAME, "html") != here)
        self.assertIn("The exchange refuses this", self.text())

    def test_what_is_typed_while_a_check_is_on_its_way_stays(self):
        self.apply("NANSI:NUMTYP=EX,NUMSE=100&&119;\n")
        self.open()
        self.go("form?command=KSEXI")
        self.field("DIR").click()
        ActionChains(self.browser).send_keys("100", Keys.TAB, Keys.TAB, "12", Keys.TAB, Keys.TAB, "1").perform()
        self.settled()
        self.assertEqual([self.value(name) for name in ("DIR", "ITYPE", "ACCTYP")], ["100", "12", "1"])

    def test_hostile_values_do_nothing(self):
        hostile = '<img src=x onerror="document.title=1"><script>document.title=1</script>\'"&;,'
        self.open()
        self.go("form?command=KSEXI")
        for field in self.browser.find_elements(By.CSS_SELECTOR, "#form input[type=text]"):
            if field.is_displayed():
                self.browser.execute_script("arguments[0].value = arguments[1]", field, hostile)
        self.type("DIR", hostile)
        self.assertEqual(self.value("DIR"), hostile)
        self.press("Show what it will do")
        self.assertEqual(self.browser.title, "KSEXI: add - office.cbx")
        self.assertEqual(self.browser.find_elements(By.CSS_SELECTOR, "main img, main script"), [])

    def test_two_tabs_do_not_overwrite_each_other(self):
        self.apply("NANSI:NUMTYP=EX,NUMSE=100&&119;\nEXCCS:CAT=1,TRAF=11,SERV_D6=1;\n"
                   "KSEXI:DIR=100,ITYPE=12,EQU=next,CAT=1;\n")
        self.open()
        self.go("form?command=KSEXI&of=DIR%3D100")
        first = self.browser.current_window_handle
        self.browser.switch_to.new_window("tab")
        self.go("form?command=KSEXI&of=DIR%3D100")
        self.type("CUST", "1")
        self.press("Change at once")
        self.browser.close()
        self.browser.switch_to.window(first)
        self.type("LANG", "2")
        self.assertIn("The exchange has changed since this form was opened.", self.text())
        self.press("Change at once")
        self.assertIn("so nothing was done", self.text())
        self.assertEqual((self.value("CUST"), self.value("LANG")), ("1", "2"))
        self.press("Change at once")
        self.assertIn("Done", self.text())
        shown = self.program("show", self.file, "KSEXI", "DIR=100")
        self.assertRegex(shown.splitlines()[1], r"\b1\b.*\b2\b")

    def test_no_page_complains_in_the_console(self):
        self.open()
        self.browser.get_log("browser")  # what tests before have left
        for page in ("", "form?command=KSEXI", "form?command=NANSI"):
            self.go(page)
        told = [entry["message"] for entry in self.browser.get_log("browser")]
        self.assertEqual(told, [])


if __name__ == "__main__":
    PROGRAM = str(pathlib.Path(sys.argv.pop(1)).resolve())
    os.environ.setdefault("HOME", tempfile.gettempdir())
    unittest.main()
