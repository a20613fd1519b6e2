"""g++ 12 builds wrong code, and says nothing, for a temporary lambda or a braced temporary in a
full-expression that suspends a coroutine. Such a thing needs a name and a statement of its own."""

import re
from dataclasses import dataclass, field

from sources import bare_cpp, cpp_files, line_of, run_rule

SUSPENDS = {"co_await", "co_yield"}
HEADERS = {"if", "while", "for", "switch", "catch"}
SCOPES = {"namespace", "class", "struct", "union", "enum", "extern"}
BEFORE_BLOCK = {"else", "do", "try", ":", "const", "noexcept", "override", "final", "mutable", "&"}
# Words after which a bracket begins a lambda and is no subscript.
BEFORE_EXPRESSION = {"return", "co_return", "co_await", "co_yield", "throw", "case", "else", "do",
                     "and", "or", "not"}

_TOKEN = re.compile(r"[A-Za-z_]\w*|\d[\w.']*|->|::|&&|\S")
_NO_CODE = re.compile(r"^[ \t]*#(?:\\\n|[^\n])*|\[\[[^\[\]{}]*\]\]", re.MULTILINE)
_CLOSING = {"(": ")", "[": "]", "{": "}"}


@dataclass
class Token:
    text: str
    position: int
    inside: list["Token"] = field(default_factory=list)  # of a bracket: up to the closing one


def tree(code):
    """The tokens of `code`, those in brackets below their bracket; no directives or attributes."""
    matches = _TOKEN.finditer(_NO_CODE.sub(lambda m: re.sub(r"[^\n]", " ", m.group()), code))

    def up_to(closing):
        tokens = []
        for match in matches:
            if match.group() == closing:
                break
            token = Token(match.group(), match.start())
            if token.text in _CLOSING:
                token.inside = up_to(_CLOSING[token.text])
            tokens.append(token)
        return tokens
    return up_to(None)


def begins_lambda(tokens, index):
    """Whether the bracket there is neither a subscript nor a structured binding."""
    before = [token.text for token in tokens[:index]]
    while before and before[-1] in ("&", "&&"):
        before.pop()
        if before and before[-1] == "auto":
            return False
    previous = tokens[index - 1].text if index else ""
    is_operand = re.match(r"""[\w"'(\[{]""", previous)
    return not is_operand or previous in BEFORE_EXPRESSION


def lambdas(tokens):
    """The lambdas of one bracket's inside: their introducers with their bodies, if these came."""
    found = []
    for index, token in enumerate(tokens):
        if token.text == "[" and begins_lambda(tokens, index):
            found.append([token, None])
        elif token.text == "{" and found and not found[-1][1]:
            found[-1][1] = token
    return found


def opens_block(statement):
    """Whether a brace after these tokens begins a body and no initialiser."""
    if not statement:
        return True
    if any(not body for _, body in lambdas(statement)):
        return False
    words = [token.text for token in statement]
    if words[-1] in BEFORE_BLOCK or words[-1] in "({":
        return True
    if "=" in words or SUSPENDS & set(words):
        return False
    return "->" in words or bool(SCOPES & set(words))


def statements(tokens):
    """The statements in these tokens and in the blocks, headers and lambdas among them."""
    current = []
    for token in tokens:
        words = [each.text for each in current]
        if token.text == ";":
            yield current
            current = []
        elif token.text == "{" and opens_block(current):
            yield current
            yield from statements(token.inside)
            current = []
        elif token.text == "(" and HEADERS & set(words[-2:]):
            yield from statements(token.inside)
            current = []
        else:
            current.append(token)
    yield current


def expression_tokens(tokens):
    """All tokens of an expression but for those in the bodies of its lambdas."""
    bodies = [body for _, body in lambdas(tokens)]
    for token in tokens:
        yield token
        if not any(token is body for body in bodies):
            yield from expression_tokens(token.inside)


def lambda_bodies(tokens):
    """The outermost lambda bodies in an expression."""
    bodies = [body for _, body in lambdas(tokens) if body]
    for token in tokens:
        if any(token is body for body in bodies):
            yield token
        else:
            yield from lambda_bodies(token.inside)


def has_lambda(tokens):
    return bool(lambdas(tokens)) or any(has_lambda(token.inside) for token in tokens)


def findings_in(name, text):
    code = bare_cpp(text)
    scopes = [tree(code)]
    while scopes:
        for statement in statements(scopes.pop()):
            scopes += [body.inside for body in lambda_bodies(statement)]
            parts = list(expression_tokens(statement))
            if not any(part.text in SUSPENDS for part in parts):
                continue
            line = line_of(text, statement[0].position)
            if has_lambda(statement):
                yield f"{name}:{line}: a lambda in a statement that suspends"
            elif any(part.text == "{" for part in parts):
                yield f"{name}:{line}: a braced initialiser in a statement that suspends"


def in_function(body):
    return "src/Sample.cpp", f"QCoro::Task<int> A::run(Options o = {{}}) const\n{{\n{body}\n}}"


BAD = [in_function(body) for body in [
    "co_await QtConcurrent::run([q] { return q; });",
    "auto all = co_await QtConcurrent::run(pool,\n    [this, q = text] {\n    read(q);\n});",
    "co_await task.then([](int i) { return i; });",
    "co_await [c]() -> QCoro::Task<> { co_return; }();",
    "auto x = co_await f(Note{a, b});",
    "co_await f({a, b});",
    "x = Note{co_await f(), 1};",
    "if (done) { co_await f({}); }",
    "if (co_await f({1})) { stop(); }",
    "for (auto& n : co_await all({a})) { use(n); }",
    "for (;;) co_yield Note{a};",
    "const auto later = [this]() -> QCoro::Task<> { co_await f({a}); };",
    "connect(a, [this] { co_await f(Note{a}); });",
    "switch (kind) { case Kind::a: co_return co_await f({a}); default: break; }",
    "v[co_await f()] = [a] { return a; };",
    "a = 1'000; co_await f('{', {a});",
]]

GOOD = [in_function(body) for body in [
    "auto done = QtConcurrent::run([q] { return q; });\nco_await done;",
    "const Note note{a, b};\nauto [x, y] = co_await f(note);",
    "auto& [x, y] = co_await f(v[i], w()[1], \"x\"[0]);",
    "const auto&& [x, y] = co_await f();",
    "if (co_await f()) {\n    stop(Note{a});\n} else if (!co_await g()) {\n    go({});\n}",
    "if (const auto r = co_await f(); r == Note{a}) go();",
    "if (co_await f()) return Note{a};",
    "while (const auto n = co_await queue->next()) { go([n] { use(n); }); }",
    "for (auto& n : co_await all()) { use({n}); }",
    "do { go({}); } while (co_await more());",
    "try { co_await f(); } catch (const Error& e) { use({e}); }",
    "switch (co_await f()) {\ncase Kind::a: { go({}); break; }\ndefault: break;\n}",
    "[[maybe_unused]] const int i = co_await f();",
    "co_await f(); // not f({a}) or run([q] {})",
    'co_await f("{", R"x([q] {})x", \'[\');',
    "const auto later = [this]() -> QCoro::Task<> { co_await f(); };\nco_await later();",
    "a = Note{1};\nco_await f(1'000);\nb = {};",
    "#define BRACE {\nco_await f();",
    "int x{0}; { co_await f(); } x = Note{}.size;",
]] + [
    ("src/Sample.h", "class A : public B<C> {\npublic:\n    A() : m_a{1}, m_b(2) {}\n"
                     "    A& operator=(const A&) { return *this; }\n    int m_a{1};\n};\n"
                     "template <typename T>\nauto go(T t) -> Task<> {\n    co_await t;\n}\n"
                     "enum class E { a, b };\n"
                     "namespace x::y {\nTask<> f()\n{\n    co_await g();\n}\n}"),
]

if __name__ == "__main__":
    run_rule(findings_in, cpp_files(), bad=BAD, good=GOOD)
