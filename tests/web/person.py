"""A person at the page: Debian's Chromium, the site that it shows, and what people do with keys and buttons."""

import subprocess

from selenium import webdriver
from selenium.common.exceptions import StaleElementReferenceException
from selenium.webdriver.chrome.service import Service
from selenium.webdriver.common.action_chains import ActionChains
from selenium.webdriver.common.by import By
from selenium.webdriver.common.keys import Keys
from selenium.webdriver.support.ui import WebDriverWait


def chromium():
    options = webdriver.ChromeOptions()
    for argument in ("--headless=new", "--no-sandbox", "--disable-gpu", "--disable-dev-shm-usage", "--no-proxy-server",
                     "--lang=en", "--window-size=1280,900"):
        options.add_argument(argument)
    options.set_capability("goog:loggingPrefs", {"browser": "ALL"})
    return webdriver.Chrome(service=Service("/usr/bin/chromedriver"), options=options)


class Site:
    """cordboard web on a file, until it is closed."""

    def __init__(self, program, file, *arguments):
        self.process = subprocess.Popen([program, "web", str(file), *arguments], stdout=subprocess.PIPE,
                                        stderr=subprocess.PIPE, text=True)
        self.entrance = self.process.stdout.readline().strip()
        if not self.entrance:
            raise RuntimeError(self.process.stderr.read())
        self.root = self.entrance[:self.entrance.index("?")]

    def close(self):
        self.process.terminate()
        self.process.communicate(timeout=20)


class Person:
    def __init__(self, browser, site):
        self.browser = browser
        self.root = site.root
        browser.get(site.entrance)

    def until(self, condition):
        # What is looked at may make room for what is checked meanwhile.
        return WebDriverWait(self.browser, 30, 0.02, [StaleElementReferenceException]).until(lambda _: condition())

    def all(self, selector):
        return self.browser.find_elements(By.CSS_SELECTOR, selector)

    def go(self, path):
        self.browser.get(self.root + path)

    def settled(self):
        """Waits until the form is checked."""
        self.until(lambda: not self.all("#filled[aria-busy]"))

    def field(self, name):
        return self.browser.find_element(By.ID, "v." + name)

    def value(self, name):
        return self.field(name).get_attribute("value")

    def about(self, name):
        return self.browser.find_element(By.ID, "about." + name).text

    def type(self, name, value):
        """Types over what the field has in it, and leaves it."""
        field = self.field(name)
        for summary in field.find_elements(By.XPATH, "ancestor::details[not(@open)]/summary"):
            summary.click()
        field.send_keys(Keys.CONTROL, "a")
        field.send_keys(value or Keys.DELETE)
        field.send_keys(Keys.TAB)
        self.settled()

    def keys(self, *keys):
        """Types to whatever has the focus."""
        ActionChains(self.browser).send_keys(*keys).perform()

    def page_that_comes(self, act):
        here = self.browser.find_element(By.TAG_NAME, "html")
        act()
        self.until(lambda: self.browser.find_element(By.TAG_NAME, "html") != here)

    def press(self, text):
        """Presses a button or follows a link."""
        found = self.browser.find_element(
            By.XPATH, f'//main//*[self::button or self::a][normalize-space()="{text}"]')
        self.page_that_comes(found.click)

    def text(self):
        return self.browser.find_element(By.ID, "main").text

    def heading(self):
        return self.browser.find_element(By.TAG_NAME, "h1").text

    def fill(self, command, **values):
        self.go("form?command=" + command)
        for name, value in values.items():
            self.type(name, value)

    def add(self, command, **values):
        self.fill(command, **values)
        self.press("Show what it will do")
        self.press("Do it")
        if "Done, and kept" not in self.text():
            raise AssertionError(self.text())

    def window(self, width, height, scheme="light"):
        """Looks at the page in a window of this size, with a light or a dark scheme."""
        self.browser.execute_cdp_cmd("Emulation.setDeviceMetricsOverride",
                                     {"width": width, "height": height, "deviceScaleFactor": 1, "mobile": False})
        self.browser.execute_cdp_cmd("Emulation.setEmulatedMedia",
                                     {"features": [{"name": "prefers-color-scheme", "value": scheme}]})


# The main views, each with how one comes there.
VIEWS = {
    "commands": lambda person: person.go(""),
    "records": lambda person: person.go("records?command=KSEXI"),
    "form": lambda person: (person.fill("KSEXI", DIR="300", ITYPE="12", EQU="next"), person.type("CAT", "99")),
    "values": lambda person: (person.go("form?command=KSEXI"), person.field("ITYPE").send_keys(Keys.ARROW_DOWN),
                              person.until(lambda: person.all("[role=option]"))),
    "edit": lambda person: person.go("form?command=KSEXI&of=DIR%3D200"),
    "try": lambda person: (person.fill("KSEXI", DIR="next:3", ITYPE="12", EQU="next", CAT="1"),
                           person.press("Show what it will do")),
    "delete": lambda person: person.go("delete?command=KSEXI&of=DIR%3D200"),
    "lines": lambda person: person.go("lines"),
    "history": lambda person: person.go("history"),
    "state": lambda person: person.go("state?number=1"),
    "undo": lambda person: person.go("undo?number=1"),
    "compare": lambda person: person.go("compare?first=%400&second="),
    "between": lambda person: person.go("between?first=%400&second="),
    "plan": lambda person: person.go("plan"),
    "used": lambda person: person.go("used?value=200"),
    "help": lambda person: person.go("help?command=KSEXI"),
    "parameter": lambda person: person.go("help?command=NANSI&parameter=NUMTYP"),
}
