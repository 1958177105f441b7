#!/usr/bin/env python3
"""The comparison with a browser, without a browser: what it makes up, compares and reduces."""

import json
import sys
import tempfile
import unittest
from pathlib import Path
from xml.etree import ElementTree

root = Path(__file__).resolve().parent.parent.parent
sys.path[:0] = [str(root / "scripts"), str(root / "bench" / "driver")]

from oracle.comparison import Oracle, differences  # noqa: E402
from oracle.generator import MEDIA, Generator  # noqa: E402
from oracle.pairs import Gap, Node, Pair, Sequence, Several  # noqa: E402
from oracle.participants import nodes_of, write_pair  # noqa: E402
from oracle.properties import COMPARED, PROPERTIES, of_browser, of_ours, unescaped  # noqa: E402
from oracle.reduction import reduce  # noqa: E402

SEEDS = range(1, 60)


def pair_of(texts: list) -> Pair:
    tree = Node("scene", children=[Node("panel", "ok", ["a", "b"], [Node("row")]), Node("cell", classes=["c"])])
    return Pair(0, tree, Several([Several([text]) for text in texts], least=1))


class Generated(unittest.TestCase):
    def test_a_seed_gives_one_pair(self):
        for seed in SEEDS:
            one, other = Generator(seed).pair(), Generator(seed).pair()
            self.assertEqual(one.root.to_xml(), other.root.to_xml())
            self.assertEqual(one.texts(), other.texts())
        self.assertNotEqual(Generator(1).pair().texts(), Generator(2).pair().texts())

    def test_trees_have_10_to_60_nodes_and_are_xml(self):
        for seed in SEEDS:
            tree = Generator(seed).pair().root
            elements = list(ElementTree.fromstring(tree.to_xml()).iter())
            self.assertEqual([element.tag for element in elements], [node.type for node in tree.nodes()])
            self.assertTrue(10 <= len(elements) <= 60, len(elements))

    def test_every_kind_of_text_comes_up(self):
        texts = "".join(text for seed in range(1, 400) for text in Generator(seed).pair().texts())
        words = [">", "*", "#ok", ".Primary", ":hover", "@MEDIA", "<!--", "@charset", "/* é */", "never closed", "\f",
                 "-x-unknown", "cut off", "IMPORTANT", "(1; 2)", "@unknown", *MEDIA]  # fmt: skip
        for word in words + [known.name for known in PROPERTIES]:
            self.assertIn(word, texts)

    def test_no_value_is_written_twice_within_a_pair(self):
        generator = Generator(7)
        values = [known.value(generator._random, generator._numbers) for known in PROPERTIES * 50 if not known.parts]
        self.assertEqual(len(values), len(set(values)))


class Values(unittest.TestCase):
    def test_of_the_browser(self):
        cases = [("auto", None), ("none", None), ("normal", None), ("0", None), ("1", None), ("0px", None),
                 ("-7", -7.0), ("2.25", 2.25), ("-3.5px", -3.5), ("W-12", "W-12"),
                 ('"a\\"\\\\\\9 b"', 'a"\\\tb')]  # fmt: skip
        for computed, value in cases:
            self.assertEqual(of_browser(computed), value, computed)

    def test_of_ours(self):
        self.assertIsNone(of_ours(None))
        self.assertEqual(of_ours({"value": 5}), 5.0)
        self.assertEqual(of_ours({"value": [{"type": 2, "value": 5}]}), 5.0)
        self.assertEqual(of_ours({"value": [{"type": 6, "value": "w5"}]}), "w5")
        both = [{"type": 2, "value": 5}, {"type": 2, "value": 6}]
        self.assertEqual(of_ours({"value": both}), both)

    def test_serialized_strings(self):
        self.assertEqual(unescaped('"\\41 b\\20ac"'), "Ab\u20ac")
        self.assertEqual(unescaped('""'), "")


class Files(unittest.TestCase):
    def test_hold_the_bytes_of_the_sheets(self):
        with tempfile.TemporaryDirectory() as folder:
            arguments = write_pair(pair_of(["a {}\r\n", "/* é */\f"]), Path(folder))
            self.assertEqual(arguments, ["style", f"{folder}/scene.xml", "-s", f"{folder}/sheet0.css", "-s",
                                         f"{folder}/sheet1.css", "--any-property"])  # fmt: skip
            self.assertEqual(Path(folder, "sheet0.css").read_bytes(), b"a {}\r\n")
            self.assertEqual(Path(folder, "sheet1.css").read_bytes(), "/* é */\f".encode())
            self.assertEqual([node.tag for node in ElementTree.parse(f"{folder}/scene.xml").iter()],
                             ["scene", "panel", "row", "cell"])  # fmt: skip

    def test_answers_are_read_in_the_order_of_the_document(self):
        answer = json.loads('{"n": 0, "children": [{"n": 1, "children": [{"n": 2, "children": []}]},'
                            ' {"n": 3, "children": []}]}')  # fmt: skip
        self.assertEqual([node["n"] for node in nodes_of(answer)], [0, 1, 2, 3])


class Compared(unittest.TestCase):
    def test_equal_answers_have_no_difference(self):
        answer = [[None] * len(COMPARED), [3.0] * len(COMPARED)]
        self.assertEqual(differences(answer, answer), [])

    def test_a_difference_names_node_and_property(self):
        browser = [[None] * len(COMPARED) for _ in range(3)]
        ours = [list(values) for values in browser]
        ours[2][1] = 4.0
        found = differences(browser, ours)
        self.assertEqual(list(map(str, found)), [f"node 2, {COMPARED[1]}: the browser has None, ours is 4.0"])

    def test_another_number_of_nodes_is_a_difference(self):
        answer = [[None] * len(COMPARED)]
        self.assertEqual(len(differences(answer * 2, answer)), 1)

    def test_a_lost_rule_is_noticed(self):
        class Side:
            def __init__(self, heard: list):
                self._heard = heard

            def winners(self, pairs: list) -> list:
                return [[[2.0 if text in self._heard else None for _ in COMPARED] for text in pair.texts()]
                        for pair in pairs]  # fmt: skip

        oracle = Oracle(Side(["x", "y"]), Side(["x"]))
        self.assertEqual([bool(found) for found in oracle.differences([pair_of(["x"]), pair_of(["x", "y"])])],
                         [False, True])  # fmt: skip
        self.assertEqual(oracle.compared, 3 * len(COMPARED))


class Reduced(unittest.TestCase):
    def test_to_what_the_difference_needs(self):
        for seed in SEEDS:
            pair = Generator(seed).pair()
            if "scroll-margin-top" in "".join(pair.texts()) and len(pair.root.nodes()) > 12:
                break
        reduce(pair, lambda now: "scroll-margin-top" in "".join(now.texts()) and len(now.root.nodes()) >= 3)
        self.assertEqual(len(pair.root.nodes()), 3)
        self.assertEqual([(node.id, node.classes) for node in pair.root.nodes()], [("", [])] * 3)
        self.assertEqual(len(pair.texts()), 1)
        self.assertRegex(pair.texts()[0], r"^(@\w+ ?[^{]*\{)?[^{},]+\{[^{};]*scroll-margin-top[^{}]*\}*$")

    def test_what_has_to_stay_stays(self):
        several = Several([Sequence(["x", Gap(" /**/", " ")]), "y"], ",", least=1)
        pair = Pair(0, Node("scene"), several)
        reduce(pair, lambda now: True)
        self.assertEqual(len(several.parts), 1)

    def test_gaps_become_plain(self):
        pair = pair_of([Sequence(["a", Gap("/**/ \n", " "), "b"])])
        reduce(pair, lambda now: "b" in "".join(now.texts()))
        self.assertEqual(pair.texts(), ["a b"])

    def test_every_step_still_differs(self):
        pair = Generator(3).pair()
        reduce(pair, lambda now: len(now.root.nodes()) % 2 == 0 or len(now.texts()[0]) > 100)
        self.assertTrue(len(pair.root.nodes()) % 2 == 0 or len(pair.texts()[0]) > 100)


if __name__ == "__main__":
    unittest.main()
