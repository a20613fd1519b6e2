"""The keys of the editor: what they write, what they delete and take back, and how soon."""

import os
import unittest

from editor import editing
from processes import wait_until

AMERICAN = {"LC_ALL": "en_US.UTF-8"}
COMMANDS = "/new_note", "/search_notes", "/recent"
# Seconds, for a key in a very long text. Sanitizers take an order of magnitude more time.
LONGEST_WORK = 10 if "JOTWELL_SANITIZED" in os.environ else 1


class Undo(unittest.TestCase):
    def press_until_empty(self, editor, key, most):
        """How often it takes; and what the field held after each."""
        texts = []
        while editor.text():
            self.assertLess(len(texts), most, texts)
            before = editor.text()
            editor.press(key)
            wait_until(lambda text=before: editor.text() != text, f"a change by {key}")
            texts.append(editor.text())
        return texts

    def test_rewrite_goes_with_the_edit_that_led_to_it(self):
        for command, parameter in ("/new_note", "$Default"), ("/recent", "$All Folders"):
            with self.subTest(command), editing() as editor:
                editor.type(f"hello {command}")
                whole = f"hello {command}  {parameter}"
                editor.wait_for(whole)
                editor.press("ctrl+z")
                wait_until(lambda: "$" not in editor.text(), "the text before the parameter")
                self.assertNotIn(command, editor.text())
                self.assertTrue(whole.startswith(editor.text()))
                editor.press("ctrl+shift+z")
                editor.wait_for(whole)
                self.press_until_empty(editor, "ctrl+z", most=len(whole))

    def test_deletion_that_led_to_a_rewrite_comes_back(self):
        with editing() as editor:
            editor.type("/new_note")
            editor.wait_for("/new_note  $Default")
            editor.press(*["BackSpace"] * len("$Default"))
            editor.wait_for("/new_note  $Default  ")
            editor.press("ctrl+z")
            wait_until(lambda: editor.text() != "/new_note  $Default  ", "the text before")
            self.assertIn("$", editor.text())
            self.press_until_empty(editor, "ctrl+z", most=20)

    def test_chosen_row_is_taken_back_and_made_again(self):
        with editing() as editor:
            editor.type("hello /se")
            editor.wait_for_rows("/search_notes")
            editor.press("Return")
            editor.wait_for("hello /search_notes")
            editor.press("ctrl+z")
            editor.wait_for("hello /se")
            editor.wait_for_rows("/search_notes")
            editor.press("ctrl+shift+z")
            editor.wait_for("hello /search_notes")
            editor.wait_for_rows()

    def test_what_a_command_has_cleared_comes_back(self):
        with editing() as editor:
            editor.type("Call Ada /new_note")
            editor.press("ctrl+Return")
            editor.wait_for_note()
            editor.wait_for("")
            editor.press("ctrl+z")
            editor.wait_for("Call Ada /new_note  $Default")

    def test_deleted_word_comes_back(self):
        with editing() as editor:
            editor.type("x /rec")
            editor.wait_for_rows("/recent")
            editor.press("BackSpace")
            editor.wait_for("x ")
            editor.press("ctrl+z")
            editor.wait_for("x /rec")


class Keys(unittest.TestCase):
    def test_backspace_takes_a_slash_word_as_one(self):
        with editing() as editor:
            editor.type("x /recent")
            editor.wait_for("x /recent  $All Folders")
            editor.press(*["Left"] * len("  $All Folders"))
            wait_until(lambda: editor.cursor() == len("x /recent"), "the cursor behind the word")
            editor.press("BackSpace")
            editor.wait_for("x   $All Folders")
            self.assertEqual(editor.cursor(), len("x "))
            editor.press("BackSpace")
            editor.wait_for("x  $All Folders")

    def test_backspace_deletes_a_selection(self):
        with editing() as editor:
            editor.type("x /zebra")
            editor.press("shift+Left", "shift+Left", "BackSpace")
            editor.wait_for("x /zeb")

    def test_tab_is_used_up(self):
        with editing() as editor:
            editor.type("ab")
            editor.press("Tab")
            editor.type("c")
            editor.wait_for("abc")
            editor.type(" /")
            editor.wait_for_rows(*COMMANDS)
            editor.press("Tab")
            editor.type("s")
            editor.wait_for("abc /s")
            editor.wait_for_rows("/search_notes")

    def test_return_and_the_arrows_are_the_editor_s_without_a_list(self):
        with editing() as editor:
            editor.type("one")
            editor.press("Return")
            editor.type("two")
            editor.press("Up")
            editor.type("x")
            editor.wait_for("onex\ntwo")
            editor.press("Down", "End", "Return", "shift+Return")
            editor.type("three")
            editor.wait_for("onex\ntwo\n\nthree")

    def test_control_return_runs_it_in_spite_of_an_open_list(self):
        with editing() as editor:
            editor.type("Call Ada /new_note")
            editor.wait_for_rows("/new_note")
            editor.press("ctrl+Return")
            self.assertTrue(editor.wait_for_note().read_text().startswith("# Call Ada\n"))
            editor.wait_for("")

    def check_written(self, editor, thought):
        editor.wait_for(thought)
        editor.type(" /new_note")
        editor.wait_for(f"{thought} /new_note  $Default")
        editor.press("ctrl+Return")
        self.assertTrue(editor.wait_for_note().read_text().startswith(f"# {thought}\n"))

    def test_dead_keys(self):
        with editing(program=AMERICAN) as editor:
            editor.desktop.ask("setxkbmap", "us", "-variant", "intl")
            editor.press("c", "a", "f", "dead_acute", "e", "space", "dead_tilde", "n")
            editor.press("dead_diaeresis", "U", "dead_acute", "space")
            self.check_written(editor, "caf\u00e9 \u00f1\u00dc'")

    def test_dead_key_waits_for_its_letter_beside_tokens(self):
        with editing(program=AMERICAN) as editor:
            editor.desktop.ask("setxkbmap", "us", "-variant", "intl")
            editor.type("/ne")
            editor.wait_for_rows("/new_note")
            editor.press("dead_acute")
            editor.press("e")
            editor.wait_for("/ne\u00e9")
            editor.wait_for_rows()
            editor.press("ctrl+a", "Delete", "slash", "n", "e", "w", "underscore", "n", "o", "t", "e")
            editor.wait_for("/new_note  $Default")
            editor.press("space", "dead_acute", "e")
            editor.wait_for("/new_note  $Default \u00e9")

    def test_compose_sequences(self):
        with editing(program=AMERICAN) as editor:
            editor.desktop.ask("setxkbmap", "us", "-option", "compose:ralt")
            editor.press("Multi_key", "o", "c", "space", "Multi_key", "apostrophe", "a", "space")
            editor.press("Multi_key", "minus", "minus", "minus", "Multi_key", "slash", "o")
            self.check_written(editor, "\u00a9 \u00e1 \u2014\u00f8")


class Pasting(unittest.TestCase):
    def test_long_text_full_of_tokens_leaves_the_keys_alone(self):
        words = "#tag /word $Default **bold**"
        for key, end in ("space", " "), ("Return", "\n"):
            with self.subTest(key), editing() as editor:
                editor.type(words)
                editor.press(key)
                self.paste_doubled(editor, words + end, times=12)
                text = (words + end) * 2 ** 12
                self.assertGreater(len(text), 100_000)
                for keys in ["x"], ["BackSpace"], ["y"]:
                    self.check_quick(editor, *keys)
                self.check_quick(editor, "ctrl+Home", "z")
                editor.wait_for(f"z{text}y")

    def paste_doubled(self, editor, text, times):
        """Doubles the text that is there so many times, and then pastes all of it at once."""
        editor.wait_for(text)
        length = len(text)
        for _ in range(times):
            editor.press("ctrl+a", "ctrl+c", "ctrl+End", "ctrl+v")
            length *= 2
            wait_until(lambda end=length: editor.cursor() == end, "the text twice")
        editor.press("ctrl+a", "ctrl+c", "Delete")
        editor.wait_for("")
        editor.press("ctrl+v")
        wait_until(lambda: editor.cursor() == length, "all of the text")

    def check_quick(self, editor, *keys):
        """That the last of them shows soon. What counts is the program's own work, so that a busy
        machine doesn't matter."""
        before, cursor = editor.program.processor_time(), editor.cursor()
        editor.press(*keys)
        wait_until(lambda: editor.cursor() != cursor, "the key")
        worked = editor.program.processor_time() - before
        print(f"{'+'.join(keys)}: {worked:.2f} s of work")
        self.assertLess(worked, len(keys) * LONGEST_WORK)


if __name__ == "__main__":
    unittest.main()
