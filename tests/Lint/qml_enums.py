"""QML finds an enumerator by its name only if that begins with a capital; any other is undefined,
and nobody is told."""

import re

from sources import bare_cpp, files, line_of, run_rule, text_of

_CLASS = re.compile(r"\bclass\s+(\w+)[^;{]*\{(.*?)^\};", re.MULTILINE | re.DOTALL)
_ELEMENT = re.compile(r"\bQML_(?:NAMED_ELEMENT\((\w+)\)|ELEMENT\b)")
_ENUM = re.compile(r"\benum\b[^;{]*\{([^}]*)\}")
_USE = re.compile(r"\b([A-Z]\w*)\.([a-z]\w*)\b")
_IGNORED = re.compile(r"//[^\n]*|/\*.*?\*/|\"(?:\\.|[^\"\\\n])*\"", re.DOTALL)


def unseen_by_qml(header):
    """The enumerators that QML can't name, each as (type in QML, enumerator)."""
    for name, body in _CLASS.findall(bare_cpp(header)):
        if element := _ELEMENT.search(body):
            for enumerators in _ENUM.findall(body):
                for value in re.findall(r"(?:^|,)\s*([a-z]\w*)", enumerators):
                    yield element[1] or name, value


_UNSEEN = {pair for name in files(".h") for pair in unseen_by_qml(text_of(name))}


def findings_in(name, text):
    code = _IGNORED.sub(lambda match: re.sub(r"[^\n]", " ", match.group()), text)
    for use in _USE.finditer(code):
        if use.groups() in _UNSEEN:
            yield f"{name}:{line_of(text, use.start())}: {use.group()} is undefined in QML"


BAD = [
    ("src/Views/Vault.qml", "Item {\n    onPressed: state.selectFolder(OnboardingState.vault)\n}"),
]

GOOD = [
    ("src/Views/Vault.qml", "Item {\n    // as OnboardingState.vault\n    x: OnboardingState.Vault\n"
                            "    text: \"OnboardingState.vault\"\n    color: Theme.vault\n}"),
]

if __name__ == "__main__":
    run_rule(findings_in, files(".qml"), bad=BAD, good=GOOD)
