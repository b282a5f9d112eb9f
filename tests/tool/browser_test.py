"""The page of the subcommand report in a browser: searching, links, filters, themes, small screens, hostile texts."""
import time
import unittest

from browser import Browser
from json_test import shipped_files
from support import ToolTest, attribute, dictionary, element, group, key, label, reference, scheme

PACKAGE = "set-06.0E.2B.34.02.53.01.01.0D.01.01.01.01.01.36.00"
HOSTILE = ("</script></style></title><script>hit = 1</script><img src=x onerror='hit = 2'>\"><b onclick=hit>{{title}}"
           "{{{style}}}&amp;<!-- \u0085\u202e.\u2028 ${hit = 3} `'")

# Everything that a phone could have to scroll to the side for, with all that is folded or not laid out yet in place.
WIDER_THAN_THE_WINDOW = """
    for (const details of document.querySelectorAll("details")) details.open = true;
    for (const entry of document.querySelectorAll(".entry")) entry.style.contentVisibility = "visible";
    const width = document.documentElement.clientWidth;
    const wide = [...document.querySelectorAll("body *:not(.unseen, thead, thead *)")]
        .filter((node) => node.getBoundingClientRect().right > width + 1).map((node) => node.outerHTML.slice(0, 150));
    return document.documentElement.scrollWidth > width ? ["the page", ...wide] : wide;"""


class BrowserTest(ToolTest):
    @classmethod
    def setUpClass(cls):
        cls.browser = cls.enterClassContext(Browser())

    def setUp(self):
        super().setUp()
        self.browser.set_width(1200)
        self.browser.set_system_theme("light")

    def tearDown(self):
        self.assertEqual(self.browser.messages(), [])

    def report(self, *arguments):
        status, _, errors = self.run_tool("report", "--output", "report.html", *arguments)
        self.assertEqual((status, errors), (0, b""))
        self.browser.open(self.folder / "report.html")

    def run_script(self, script, *arguments):
        return self.browser.run(script, *arguments)

    def wait_for(self, expected, script, *arguments, between=lambda: time.sleep(0.02)):
        """Waits until the script, the body of a function, returns what is expected."""
        deadline = time.monotonic() + 30
        while (value := self.run_script(script, *arguments)) != expected and time.monotonic() < deadline:
            between()
        self.assertEqual(value, expected)

    def check_shown(self, anchor):
        """The page's address is that of the anchor, and the browser has scrolled there."""
        self.wait_for(["#" + anchor, True], """
            const { top, bottom } = document.getElementById(arguments[0]).getBoundingClientRect();
            return [location.hash, top >= 0 && top < innerHeight / 2 && bottom > 0]""", anchor)


class ShippedSchemas(BrowserTest):
    def setUp(self):
        super().setUp()
        self.report(*shipped_files("registry"))

    def results(self):
        return self.run_script("return [...document.querySelectorAll('#results [role=option] > :first-child')]"
                               ".map((name) => name.textContent)")

    def type(self, text):
        self.run_script("document.getElementById('search').value = ''")
        self.browser.press("/", text)

    def test_search(self):
        for text, first in [("material pack", "Material Package"), ("materialpackage", "Material Package"),
                            ("MATERIAL_PACKAGE", "Material Package"), ("3b.03", "Content Storage"),
                            ("0x3B03", "Content Storage"), (PACKAGE[4:], "Material Package"),
                            ("urn:smpte:ul:060e2b34.02530101.0d010101.01013600", "Material Package"),
                            ("plays finished", "Material Package"), ("ContentStorageObject", "Content Storage")]:
            with self.subTest(text):
                self.run_script("document.activeElement.blur()")
                self.type(text)
                self.assertEqual(self.results()[:1], [first])
        self.run_script("document.activeElement.blur()")
        self.type("qqqq")
        self.assertEqual(self.results(), [])
        self.assertEqual(self.run_script("return document.getElementById('search-status').textContent"), "No results")

    def test_the_keyboard_is_enough(self):
        self.browser.press("Tab")
        self.assertEqual(self.run_script("return document.activeElement.className"), "skip")
        self.browser.press("Enter", "/", "package")
        names = self.results()
        chosen = "return document.querySelector('#results [aria-selected=true] > :first-child')?.textContent"
        for keys, position in (([], 0), (["Down", "Down"], 2), (["Up"], 1), (["Up", "Up"], -1), (["Down", "Down"], 1)):
            self.browser.press(*keys)
            self.assertEqual(self.run_script(chosen), names[position])
        self.assertTrue(self.run_script("""
            const input = document.activeElement;
            return document.getElementById(input.getAttribute("aria-activedescendant")).ariaSelected === "true" """))
        self.browser.press("Escape")
        self.assertTrue(self.run_script("return document.getElementById('results').hidden"))
        self.browser.press("Down", "Enter")
        self.assertEqual(self.run_script("return document.activeElement.textContent"), names[0])
        self.check_shown(self.run_script("return document.activeElement.closest('article').id"))
        self.assertEqual(self.run_script("return getComputedStyle(document.activeElement).outlineStyle"), "solid")

    def test_links(self):
        self.run_script("location.hash = '#%E0%A4%A'")  # tearDown() sees that nobody complains
        self.browser.click(f'nav a[href="#{PACKAGE}"]')
        self.check_shown(PACKAGE)
        self.wait_for("#" + PACKAGE, "return document.querySelector('[aria-current]').hash")
        target = self.run_script("return document.querySelector(':target th[scope=row] a').hash.slice(1)")
        self.browser.click(":target th[scope=row] a")
        self.check_shown(target)
        self.browser.click(":target .facts a")
        self.assertIn("set-", self.run_script("return location.hash"))
        self.run_script("history.go(-2)")
        self.check_shown(PACKAGE)

    def test_filters(self):
        shown = "return [...document.querySelectorAll('.element:not([hidden])')].map((node) => node.dataset[arguments[0]])"
        choose = """const field = document.getElementById(arguments[0]);
            field.value = arguments[1];
            field.dispatchEvent(new Event("input", { bubbles: true }));"""
        count = "return document.getElementById('filter-count').textContent"
        self.assertEqual(self.run_script(count), "All 432 elements")
        for name, value in (("kind", "List of values"), ("type", "UInt8"), ("used", "yes")):
            self.run_script(choose, f"filter-{name}", value)
            self.assertEqual(set(self.run_script(shown, name)), {value})
            self.run_script(choose, f"filter-{name}", "")
        self.browser.click("#filter-text")
        self.browser.press("0x3B03")
        self.assertEqual(self.run_script(count), "1 of 432 elements")
        self.run_script(choose, "filter-used", "no")
        self.assertEqual((self.run_script(count), self.run_script("return document.getElementById('no-match').hidden")),
                         ("0 of 432 elements", False))
        hidden = self.run_script("return document.querySelector('.tags a').hash.slice(1)")
        self.run_script("document.querySelector('.tags a').click()")  # a link to what is hidden shows it
        self.check_shown(hidden)
        self.run_script(choose, "filter-kind", "Value")
        self.run_script("location.hash = 'elements'")
        self.browser.click("#filters button")
        self.wait_for("All 432 elements", count)

    def test_themes(self):
        state = """return [getComputedStyle(document.body).backgroundColor === "rgb(255, 255, 255)" ? "light" : "dark",
                           document.getElementById("theme").getAttribute("aria-pressed")]"""
        light, dark = ["light", "false"], ["dark", "true"]
        self.assertEqual(self.run_script(state), light)
        self.browser.set_system_theme("dark")
        self.wait_for(dark, state)
        self.browser.click("#theme")
        self.assertEqual(self.run_script(state), light)
        self.browser.reload()  # again where it overtook what was stored: the browser stores in a process of its own
        self.wait_for(light, state, between=self.browser.reload)
        self.browser.set_system_theme("light")
        self.wait_for(False, "return matchMedia('(prefers-color-scheme: dark)').matches")
        self.browser.click("#theme")
        self.assertEqual(self.run_script(state), dark)
        self.browser.click("#theme")  # the system's own again, which is followed from now on
        self.browser.set_system_theme("dark")
        self.wait_for(dark, state)

    def test_small_screens_and_paper(self):
        self.browser.set_width(360)
        self.assertEqual(self.run_script(WIDER_THAN_THE_WINDOW), [])
        self.browser.press("/", "package")
        self.assertEqual(self.run_script(WIDER_THAN_THE_WINDOW), [])
        self.browser.press("Enter")
        self.check_shown(self.run_script("return document.activeElement.closest('article').id"))
        self.browser.reload()
        self.browser.command("Emulation.setEmulatedMedia", media="print")
        self.assertEqual(self.run_script("""
            const folded = document.querySelector(".set details:not([open]) table");
            return [document.querySelector(".top").checkVisibility(), folded.getBoundingClientRect().height > 0]"""),
                         [False, True])


class HostileTexts(BrowserTest):
    def test_they_are_texts_and_no_more(self):
        long = "W" * 400
        self.write("d.xsd", dictionary(element(1, "One", name=HOSTILE, documentation=HOSTILE), element(2, "Two", name=long),
                                       reference(3, "Three", "One")))
        self.write("s.xsd", scheme(group(1, "One", attribute("One", tag_text="3C.0A"), attribute("Two"), name=HOSTILE),
                                   group(2, "Two", attribute("Three"), base="One", name=long)))
        self.report("--dictionary", "d.xsd", "--scheme", "s.xsd", "--title", HOSTILE)
        shown = HOSTILE.replace("\u0085", " ").replace("\u2028", " ").replace("\u202e", "\ufffd")
        paragraph = " ".join(shown.split())
        self.assertEqual(self.run_script("""
            return [typeof hit, document.querySelectorAll("script").length, document.querySelectorAll("img, b").length,
                    document.title, document.querySelector("h1").textContent,
                    document.getElementById(arguments[0]).querySelector("h3 a").textContent,
                    document.getElementById(arguments[1]).querySelector(".documentation").textContent]""",
                                         f"set-{key(1)}", f"element-{label(1)}"),
                         ["undefined", 2, 0, paragraph, shown, shown, paragraph])
        self.browser.press("/", "</script>")
        self.assertEqual(self.run_script("return [document.querySelectorAll('#results [role=option]').length, typeof hit]"),
                         [2, "undefined"])
        self.browser.press("Escape")
        self.browser.set_width(360)
        self.assertEqual(self.run_script(WIDER_THAN_THE_WINDOW), [])


if __name__ == "__main__":
    unittest.main()
