# SPDX-License-Identifier: GPL-3.0-or-later
"""The page that vistrum-batch writes for a diagram, in a browser without a display: its colours as pixels, and what the
pointer does. Arguments: the program, the folder of the example study."""

import io
import re
import struct
import subprocess
import sys
import tempfile
import unittest
import zlib
from pathlib import Path

from selenium import webdriver
from selenium.webdriver.common.action_chains import ActionChains
from selenium.webdriver.common.by import By

PROGRAM, STUDY = Path(sys.argv[1]), Path(sys.argv[2])


def browser():
    options = webdriver.ChromeOptions()
    for argument in ("--headless=new", "--no-sandbox", "--disable-gpu", "--disable-dev-shm-usage", "--window-size=900,1000"):
        options.add_argument(argument)
    return webdriver.Chrome(options=options)


def colors_of(png):
    """The colours of an 8-bit RGB or RGBA picture without interlace, with how many pixels have each."""
    stream, chunks, channels = io.BytesIO(png[8:]), b"", 0
    while header := stream.read(8):
        size, kind = struct.unpack(">I4s", header)
        data = stream.read(size)
        stream.read(4)
        if kind == b"IHDR":
            width, height, _, color_type = struct.unpack(">IIBB", data[:10])
            channels = {2: 3, 6: 4}[color_type]
        elif kind == b"IDAT":
            chunks += data
    raw, stride, counts, above = zlib.decompress(chunks), width * channels, {}, None
    above = bytearray(stride)
    for row in range(height):
        line = unfiltered(raw[row * (stride + 1)], bytearray(raw[row * (stride + 1) + 1:(row + 1) * (stride + 1)]), above, channels)
        for x in range(0, stride, channels):
            pixel = bytes(line[x:x + 3])
            counts[pixel] = counts.get(pixel, 0) + 1
        above = line
    return counts


def paeth(a, b, c):
    p = a + b - c
    return min((abs(p - a), 0, a), (abs(p - b), 1, b), (abs(p - c), 2, c))[2]


def unfiltered(method, line, above, channels):
    for i in range(len(line) if method else 0):
        left = line[i - channels] if i >= channels else 0
        corner = above[i - channels] if i >= channels else 0
        guess = (0, left, above[i], (left + above[i]) // 2, paeth(left, above[i], corner))[method]
        line[i] = (line[i] + guess) & 255
    return line


class PageInChromium(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        cls.browser = browser()

    @classmethod
    def tearDownClass(cls):
        cls.browser.quit()
        cls.folder.cleanup()

    def open_page(self):
        """The page of the study with tiles as areas; returns the elements of the areas."""
        page = Path(self.folder.name) / "diagram.html"
        subprocess.run([PROGRAM, "--quiet", "--calculate", "fixations", "--generate-aois", "grid", "--diagram", page,
                        *sorted(STUDY.glob("*.data"))], check=True, stdout=subprocess.DEVNULL)
        self.browser.get(page.as_uri())
        return self.browser.find_elements(By.CSS_SELECTOR, ".group")

    def test_each_area_has_its_color(self):
        areas = self.open_page()
        self.assertGreaterEqual(len(areas), 2)
        counts = colors_of(self.browser.get_screenshot_as_png())
        arcs = [area.find_element(By.TAG_NAME, "path") for area in areas]
        seen = [arc for arc in arcs if arc.rect["width"] > 25 and arc.rect["height"] > 25]
        self.assertGreaterEqual(len(seen), 2)
        for arc in seen:
            color = bytes(int(value) for value in re.findall(r"\d+", arc.value_of_css_property("fill"))[:3])
            self.assertGreater(counts.get(color, 0), 20, color.hex())

    def test_pointer_tells_an_area_and_fades_the_others(self):
        area = max(self.open_page(), key=lambda group: group.find_element(By.TAG_NAME, "path").rect["width"])
        told = self.browser.find_element(By.ID, "told")
        self.assertEqual(told.text, "")
        before = self.browser.get_screenshot_as_png()
        ActionChains(self.browser).move_to_element(area.find_element(By.TAG_NAME, "text")).perform()
        self.assertRegex(told.text, r"^.+: [0-9.]+ % of all transitions lead out, ")
        self.assertIn("chosen", area.get_attribute("class"))
        self.assertNotEqual(self.browser.get_screenshot_as_png(), before)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
