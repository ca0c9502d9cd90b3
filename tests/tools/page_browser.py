#!/usr/bin/env python3
"""The page that `orvida-catalog html` makes, in a real browser.

    page_browser.py TOOL SAMPLES            runs all checks; ends with 77 when there is no chromium to run them in
    page_browser.py TOOL SAMPLES NAME...    only these
    page_browser.py --measure PAGE          says how long the page takes to open, to show a code, and to search
    page_browser.py --pictures PAGE FOLDER  takes the pictures for the documentation
"""
import base64
import fcntl
import html
import json
import os
import re
import select
import shutil
import subprocess
import sys
import tempfile
import time

SKIPPED = 77
PATIENCE = 60  # seconds; sanitizers and busy machines are slow


class Browser:
    """Headless Chromium with one tab, driven through a pipe."""

    def __init__(self, program):
        self.profile = tempfile.TemporaryDirectory()
        (command_end, self.commands), (self.answers, answer_end) = os.pipe(), os.pipe()
        # Where the browser looks for them; a duplicate first, in case that one is in the place of the other.
        ends = [fcntl.fcntl(end, fcntl.F_DUPFD_CLOEXEC, 10) for end in (command_end, answer_end)]
        self.process = subprocess.Popen(
            [program, "--headless", "--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run",
             "--disable-background-networking", "--disable-component-update", "--disable-sync",
             "--disable-dev-shm-usage", "--remote-debugging-pipe", "--user-data-dir=" + self.profile.name, "about:blank"],
            close_fds=False, preexec_fn=lambda: [os.dup2(end, place) for end, place in zip(ends, (3, 4))],
            stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        for end in (command_end, answer_end, *ends):
            os.close(end)
        self.buffer = b""
        self.number = 0
        self.session = None
        self.events = []
        target = self.call("Target.createTarget", url="about:blank")["targetId"]
        self.session = self.call("Target.attachToTarget", targetId=target, flatten=True)["sessionId"]
        for domain in ("Page", "Runtime", "Log", "Network", "DOM"):
            self.call(domain + ".enable")
        self.call("Emulation.setFocusEmulationEnabled", enabled=True)

    def close(self):
        self.session = None
        self.call("Browser.close")
        self.process.wait(PATIENCE)
        self.profile.cleanup()

    def receive(self, deadline):
        while b"\0" not in self.buffer:
            if not select.select([self.answers], [], [], max(0, deadline - time.monotonic()))[0]:
                raise TimeoutError("the browser does not answer")
            piece = os.read(self.answers, 1 << 20)
            if not piece:
                raise EOFError("the browser ended")
            self.buffer += piece
        message, self.buffer = self.buffer.split(b"\0", 1)
        return json.loads(message)

    def call(self, method, **parameters):
        self.number += 1
        message = {"id": self.number, "method": method, "params": parameters}
        if self.session:
            message["sessionId"] = self.session
        data = json.dumps(message).encode() + b"\0"
        while data:
            data = data[os.write(self.commands, data):]
        deadline = time.monotonic() + PATIENCE
        while True:
            answer = self.receive(deadline)
            if answer.get("id") == self.number:
                if "error" in answer:
                    raise RuntimeError(method + ": " + answer["error"]["message"])
                return answer["result"]
            self.events.append(answer)

    def wait_for(self, method):
        deadline = time.monotonic() + PATIENCE
        while not any(event.get("method") == method for event in self.events):
            self.events.append(self.receive(deadline))

    def open(self, path, anchor=""):
        self.events.clear()
        self.call("Page.navigate", url="about:blank")
        self.wait_for("Page.loadEventFired")
        self.events.clear()
        self.call("Page.navigate", url="file://" + path + anchor)
        self.wait_for("Page.loadEventFired")

    def run(self, script):
        """The value of a script; a promise is waited for."""
        result = self.call("Runtime.evaluate", expression=script, returnByValue=True, awaitPromise=True)
        if "exceptionDetails" in result:
            raise RuntimeError(json.dumps(result["exceptionDetails"]))
        return result["result"].get("value")

    def go(self, anchor):
        self.run("new Promise(done => { if (location.hash === %s) done(); else { addEventListener('hashchange', "
                 "() => setTimeout(done), {once: true}); location.hash = %s; } })"
                 % (json.dumps(anchor), json.dumps(anchor)))

    def press(self, key, code=0):
        text = {"text": key} if len(key) == 1 else {}
        self.call("Input.dispatchKeyEvent", type="keyDown", key=key, code=key, windowsVirtualKeyCode=code, **text)
        self.call("Input.dispatchKeyEvent", type="keyUp", key=key, code=key, windowsVirtualKeyCode=code)

    def type(self, text):
        self.run("document.querySelector('#_search').focus(); document.querySelector('#_search').select()")
        self.call("Input.insertText", text=text)

    def choose(self, profile):
        self.run("(choice => { choice.value = [...choice.options].find(option => option.text === %s).value;"
                 "choice.dispatchEvent(new Event('change')) })(document.querySelector('#_profile'))"
                 % json.dumps(profile))

    def complaints(self):
        """What the page had to complain of, and what it asked of others."""
        found = []
        for event in self.events:
            parameters = event.get("params", {})
            if event.get("method") == "Runtime.exceptionThrown":
                found.append(json.dumps(parameters["exceptionDetails"])[:500])
            elif event.get("method") in ("Runtime.consoleAPICalled", "Log.entryAdded"):
                found.append(json.dumps(parameters)[:500])
            elif event.get("method") == "Network.requestWillBeSent":
                url = parameters["request"]["url"]
                if not re.match(r"file:|about:", url):
                    found.append("asked for " + url)
        return found


SEEN = "[...document.querySelectorAll(%s)].filter(e => e.checkVisibility()).map(e => e.innerText.trim())"


class Checks:
    def __init__(self, browser, tool, samples):
        self.browser = browser
        self.tool = tool
        self.samples = samples
        self.folder = tempfile.mkdtemp()
        self.sample = self.page_of(os.path.join(samples, "tunnels.xml"))

    def page_of(self, catalog, *options):
        page = os.path.join(self.folder, os.path.basename(catalog) + ".html")
        subprocess.run([self.tool, "html", catalog, "-o", page, *options], check=True, timeout=PATIENCE)
        return page

    def seen(self, selector):
        return self.browser.run(SEEN % json.dumps(selector))

    def expect(self, what, is_so):
        if not is_so:
            raise AssertionError(what)

    def equal(self, actual, expected):
        if actual != expected:
            raise AssertionError("%r, and not %r" % (actual, expected))

    def nothing_to_complain_of(self):
        self.equal(self.browser.complaints(), [])

    # The checks; each begins with a page of its own.

    def opens_anchors(self):
        self.browser.open(self.sample, "#RFIL")
        self.equal(self.seen("main h3"), ["RFIL Longitudinale"])
        self.equal(self.seen("nav [aria-current]"), ["RFIL Longitudinale"])
        self.browser.go("#ERG")
        self.equal(self.seen("main h3"), ["ERG Regard"])
        self.equal(self.seen("nav [aria-current]"), ["ERG Regard"])
        self.browser.go("#_profiles")
        self.equal(self.seen("main h2"), ["Profiles"])
        self.browser.go("#no such code")
        self.equal(self.seen("main h1"), ["TUNNELS-FR 1.2"])
        self.nothing_to_complain_of()

    def links_placeholders_to_their_fields(self):
        self.browser.open(self.sample, "#ERG")
        self.equal(self.seen(".obs a"), ["@TAG", "@COT"])
        self.browser.run("document.querySelector('.obs a').click()")
        self.browser.run("new Promise(done => setTimeout(done, 50))")
        self.equal(self.seen(".field.target h4"), [u"Repère ou numéro"])
        self.nothing_to_complain_of()

    def profile_changes_the_form(self):
        self.browser.open(self.sample, "#RZR")
        forms = {}
        for profile in ("ROUTE", "RAIL", "RAPIDE"):
            self.browser.choose(profile)
            forms[profile] = self.seen("#_view .field")
            names = subprocess.run([self.tool, "show", "--code", "RZR", "--profile", profile,
                                    os.path.join(self.samples, "tunnels.xml")],
                                   check=True, capture_output=True, text=True).stdout
            captions = re.findall(r"^  (\S.*)$", names, re.MULTILINE)
            self.equal(self.seen("#_view .field:not([hidden]) h4"), captions)
        self.expect("each profile has a form of its own", len(set(map(tuple, forms.values()))) == 3)
        self.nothing_to_complain_of()

    def shows_the_values_of_the_profile(self):
        self.browser.open(self.sample, "#ERG")
        self.browser.choose("ROUTE")
        route = self.seen("#_view .values tbody tr")
        self.browser.choose("RAPIDE")
        quick = self.seen("#_view .values tbody tr")
        self.expect("values of both", len(route) == 9 and quick and quick != route)
        self.nothing_to_complain_of()

    def search_finds(self):
        self.browser.open(self.sample)
        for text, expected in (("rfil", "RFIL Longitudinale"), ("epaufrure", u"RPA Épaufrure"),
                               (u"PIÉDROIT gauche", "LC_ID_COT value")):
            self.browser.type(text)
            results = self.seen("#_results a")
            self.equal(results[:1], [expected])
        self.expect("codes follow the lists that they use", any("value of LC_ID_COT" in line for line in results))
        self.browser.type("no such thing")
        self.equal(self.seen("#_count"), ["0 found"])
        self.nothing_to_complain_of()

    def works_by_keys(self):
        self.browser.open(self.sample)
        self.browser.press("/")
        self.equal(self.browser.run("document.activeElement.id"), "_search")
        self.browser.call("Input.insertText", text="rfilo")
        self.browser.press("ArrowDown", 40)
        self.browser.press("Enter", 13)
        self.browser.run("new Promise(done => setTimeout(done, 100))")
        self.equal(self.seen("main h3"), ["RFILO Ouverte"])
        self.browser.run("document.querySelector('#_search').focus()")
        self.browser.press("Escape", 27)
        self.browser.run("document.querySelector('nav summary a').focus()")
        for key, code in (("ArrowLeft", 37), ("ArrowLeft", 37), ("ArrowRight", 39), ("ArrowDown", 40)):
            self.browser.press(key, code)
        self.browser.run("new Promise(done => setTimeout(done, 100))")
        self.equal(self.browser.run("document.activeElement.innerText"), "RFI Fissure")
        self.nothing_to_complain_of()

    def prints_all_forms(self):
        self.browser.open(self.sample)
        self.browser.run("addEventListener('beforeprint', () => { window.formsOnPaper = "
                         "document.querySelectorAll('.printed > article[data-form]').length })")
        paper = base64.b64decode(self.browser.call("Page.printToPDF", preferCSSPageSize=True)["data"])
        self.expect("a PDF", paper.startswith(b"%PDF-"))
        classes = self.browser.run("document.querySelectorAll('.class').length")
        pages = len(re.findall(rb"/Type\s*/Page\b", paper))
        self.expect("%d classes on %d pages" % (classes, pages), pages > classes > 2)
        self.equal(self.browser.run("window.formsOnPaper"), 169)
        self.equal(self.browser.run("[...document.querySelectorAll('.class')].map(c => getComputedStyle(c).page).join()"),
                   "s1,s2,s3,s4")
        self.equal(self.browser.run("document.querySelectorAll('.printed').length"), 0)
        self.nothing_to_complain_of()

    def is_readable_without_scripts(self):
        self.browser.call("Emulation.setScriptExecutionDisabled", value=True)
        try:
            self.browser.open(self.sample)
            root = self.browser.call("DOM.getDocument")["root"]["nodeId"]
            for selector, count in (("article[data-form]", 169), ("#RFIL h3", 1), ("nav li a[href='#RFIL']", 1),
                                    ("#_list_LC_ID_COT td", 9)):
                found = self.browser.call("DOM.querySelectorAll", nodeId=root, selector=selector)["nodeIds"]
                self.expect("%s is there" % selector, len(found) >= count)
        finally:
            self.browser.call("Emulation.setScriptExecutionDisabled", value=False)

    def shows_hostile_texts_as_texts(self):
        with open(os.path.join(os.path.dirname(__file__), "transcripts/files/small.xml"), encoding="utf-8") as file:
            catalog = file.read()
        attack = "</noscript></style></script><script>window.hacked = 1</script>\"'><img src=x onerror='hacked = 1'>&lt;"

        def attacked(match):
            text = match[2]
            if re.fullmatch(r"-?[\d.]+|true|false|TXT|INT|DEC|DAT|BOL|LC_ID_CD|[\d-]+", text):
                return match[0]
            return match[1] + text + html.escape(attack) + match[3]

        hostile = os.path.join(self.folder, "hostile.xml")
        with open(hostile, "w", encoding="utf-8") as file:
            file.write(re.sub(r"(<[A-Z]+_\w+>)([^<]*)(</)", attacked, catalog))
        self.browser.open(self.page_of(hostile, "--readable"))
        anchors = self.browser.run("document.querySelectorAll('nav noscript').forEach(n => n.parentElement.open = true);"
                                   "new Promise(done => setTimeout(() => done([...document.querySelectorAll("
                                   "'nav a')].map(a => a.getAttribute('href'))), 200))")
        self.expect("links to all codes and lists", len(anchors) > 12)
        for anchor in anchors:
            self.browser.go(anchor)
            self.expect("a page at " + anchor, len(self.seen("main h1, main h2, main h3")) > 0)
        self.browser.type("window.hacked")
        self.expect("the attack is text", len(self.seen("#_results a")) > 5)
        self.equal(self.browser.run("typeof window.hacked"), "undefined")
        self.equal(self.browser.run("document.querySelectorAll('img, script:not(body > script)').length"), 0)
        self.nothing_to_complain_of()

    def can_be_read_by_all(self):
        """Contrast of at least 4.5 to 1, in the light and in the dark."""
        faint = """
            (() => {
              const parts = color => color.match(/[\\d.]+/g).map(Number);
              const linear = part => (part /= 255) <= .03928 ? part / 12.92 : ((part + .055) / 1.055) ** 2.4;
              const light = c => .2126 * linear(c[0]) + .7152 * linear(c[1]) + .0722 * linear(c[2]);
              const behind = e => { for (; e; e = e.parentElement) {
                  const c = parts(getComputedStyle(e).backgroundColor); if (c.length < 4 || c[3] > 0) return c; }
                return [255, 255, 255]; };
              const faint = [];
              const walker = document.createTreeWalker(document.body, NodeFilter.SHOW_TEXT);
              while (walker.nextNode()) {
                const e = walker.currentNode.parentElement;
                if (!walker.currentNode.data.trim() || !e.checkVisibility() || e.closest("option, .skip")) continue;
                const a = light(parts(getComputedStyle(e).color)), b = light(behind(e));
                const contrast = (Math.max(a, b) + .05) / (Math.min(a, b) + .05);
                if (contrast < 4.5) faint.push([contrast, e.outerHTML.slice(0, 80)]);
              }
              return faint;
            })()"""
        broken = os.path.join(self.folder, "broken.xml")
        with open(os.path.join(self.samples, "tunnels-readable.xml"), encoding="utf-8") as file:
            catalog = file.read()
        with open(broken, "w", encoding="utf-8") as file:
            file.write(catalog.replace("<PX_RangeFrom>1<", "<PX_RangeFrom>one<").replace("LC_ID_COT", "LC_ID_COTE", 1))
        page = self.page_of(broken, "--readable")
        for scheme in ("light", "dark"):
            self.browser.call("Emulation.setEmulatedMedia", features=[{"name": "prefers-color-scheme", "value": scheme}])
            for anchor in ("#_overview", "#_findings", "#ERG", "#_profiles"):
                self.browser.open(page, anchor)
                self.equal(self.browser.run(faint), [])
            self.expect("findings", len(self.seen("nav a[href='#_findings']")) == 1)
        self.browser.call("Emulation.setEmulatedMedia", features=[])

    def puts_findings_beside_what_they_concern(self):
        broken = os.path.join(self.folder, "finding.xml")
        with open(os.path.join(self.samples, "tunnels-readable.xml"), encoding="utf-8") as file:
            catalog = file.read()
        with open(broken, "w", encoding="utf-8") as file:
            file.write(re.sub(r"(<PX_CharExt_FK>CE-RFI-LO</PX_CharExt_FK>.*?<PX_Param_FK>)[^<]*", r"\1PA-NONE", catalog,
                              count=1, flags=re.DOTALL))
        self.browser.open(self.page_of(broken, "--readable"), "#RFILO")
        self.expect("a finding at its field", any("PA-NONE" in text for text in self.seen("#_view .findings li")))
        self.browser.go("#_findings")
        self.expect("and on the page of findings", any("PA-NONE" in text for text in self.seen("#_findings li")))
        self.browser.open(self.page_of(broken, "--readable", "--no-check"), "#RFILO")
        self.equal(self.seen(".findings, nav a[href='#_findings']"), [])

    def fits_narrow_screens(self):
        self.browser.call("Emulation.setDeviceMetricsOverride", width=360, height=700, deviceScaleFactor=1, mobile=True)
        for anchor in ("", "#RFILO", "#_list_LC_ID_COT", "#_profiles"):
            self.browser.open(self.sample, anchor)
            self.expect("no wider than the screen at " + anchor,
                        self.browser.run("document.documentElement.scrollWidth") <= 360)
        self.browser.open(self.sample, "#ERG")
        self.equal(self.browser.run("[...document.querySelectorAll('#_view .field th')].filter(label => {"
                                    "const range = document.createRange(); range.selectNodeContents(label);"
                                    "return !/\\s/.test(label.innerText) && range.getClientRects().length > 1"
                                    "}).map(label => label.innerText)"), [])
        self.browser.call("Emulation.clearDeviceMetricsOverride")


def run_checks(browser, tool, samples, wanted):
    checks = Checks(browser, tool, samples)
    names = wanted or [name for name, member in vars(Checks).items() if not name.startswith("_") and callable(member)
                       and name not in ("page_of", "seen", "expect", "equal", "nothing_to_complain_of")]
    failures = 0
    for name in names:
        try:
            getattr(checks, name)()
            print("ok     ", name, flush=True)
        except (AssertionError, RuntimeError) as failure:
            failures += 1
            print("FAILED ", name + ":", failure, flush=True)
    shutil.rmtree(checks.folder)
    return 1 if failures else 0


def measure(browser, page):
    start = time.monotonic()
    browser.open(page)
    browser.run("new Promise(done => requestAnimationFrame(() => setTimeout(done)))")
    print("open        %.2f s" % (time.monotonic() - start))
    for step, script in (
            ("first paint", "performance.getEntriesByType('paint')[0].startTime / 1000"),
            ("show a code", "(() => { const from = performance.now(); const chunks = document.querySelectorAll('main .class noscript');"
             "location.hash = /id=\"([^\"]*)\"/.exec(chunks[chunks.length - 1].textContent.slice(-20000))[1];"
             "return new Promise(done => addEventListener('hashchange', () => requestAnimationFrame(() => setTimeout("
             "() => done((performance.now() - from) / 1000))))) })()"),
            ("first search", "(() => { const from = performance.now(); const search = document.querySelector('#_search');"
             "search.value = 'calcite'; search.dispatchEvent(new Event('input')); return (performance.now() - from) / 1000 })()"),
            ("next search", "(() => { const from = performance.now(); const search = document.querySelector('#_search');"
             "search.value = 'calcite vo'; search.dispatchEvent(new Event('input')); return (performance.now() - from) / 1000 })()")):
        print("%-12s%.2f s" % (step, browser.run(script)))
    print("memory      %.0f MB" % (browser.run("performance.memory.usedJSHeapSize") / 1e6))


def take_pictures(browser, page, folder):
    browser.call("Emulation.setDeviceMetricsOverride", width=1000, height=620, deviceScaleFactor=1, mobile=False)
    for name, anchor, scheme in (("page-form", "#RFILO", "light"), ("page-search", "#ERG", "dark")):
        browser.call("Emulation.setEmulatedMedia", features=[{"name": "prefers-color-scheme", "value": scheme}])
        browser.open(page, anchor)
        if name == "page-search":
            browser.type("piédroit")
        browser.run("new Promise(done => requestAnimationFrame(() => setTimeout(done, 200)))")
        picture = browser.call("Page.captureScreenshot", format="png", optimizeForSpeed=False)["data"]
        with open(os.path.join(folder, name + ".png"), "wb") as file:
            file.write(base64.b64decode(picture))


def main(arguments):
    program = shutil.which("chromium") or shutil.which("chromium-browser")
    if not program:
        print("SKIPPED: there is no chromium to look at the page with; install the package chromium")
        return SKIPPED
    browser = Browser(program)
    try:
        if arguments[0] == "--measure":
            return measure(browser, os.path.abspath(arguments[1]))
        if arguments[0] == "--pictures":
            return take_pictures(browser, os.path.abspath(arguments[1]), arguments[2])
        return run_checks(browser, arguments[0], arguments[1], arguments[2:])
    finally:
        browser.close()


sys.exit(main(sys.argv[1:]))
