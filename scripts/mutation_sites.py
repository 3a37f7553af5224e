# SPDX-FileCopyrightText: the ZQFeatureBrowser authors
#
# SPDX-License-Identifier: MIT

"""Where scripts/mutate can put faults: looks through C++ sources with libclang.

Text is held as Latin-1, so that positions are those of bytes. A site is a dictionary: `at` and
`to` bound it in the text, `faults` are texts that can stand there instead, `inner` are the sites
within it, `form` says what it is:
    expression   a number or a truth value
    condition    anything that is used as a truth value
    declared X   `T X = value` in an if, where X is the condition
    drop         a statement that is an expression, to be left out
    leave        return, break or continue, to be left out
    statement    `return value;`"""
import collections
import pathlib
import re
import sys

try:
    from clang import cindex
    from clang.cindex import CursorKind as K, TypeKind as T
except ImportError:
    sys.exit("mutate: libclang is missing: apt install python3-clang-14")

SWAPS = {"<": ["<=", ">"], "<=": ["<", ">="], ">": [">=", "<"], ">=": [">", "<="], "==": ["!="],
    "!=": ["=="], "+": ["-"], "-": ["+"], "*": ["/"], "/": ["*"], "%": ["/"], "&": ["|"],
    "|": ["&"], "<<": [">>"], ">>": ["<<"], "+=": ["-="], "-=": ["+="], "*=": ["/="], "/=": ["*="],
    "|=": ["&="], "&=": ["|="], "<<=": [">>="], ">>=": ["<<="]}
COMPARISONS = ("<", "<=", ">", ">=", "==", "!=")
EXTREMES = {"min": "max", "max": "min", "qMin": "qMax", "qMax": "qMin", "fmin": "fmax",
    "fmax": "fmin"}
LIMITED = {"clamp": 0, "qBound": 1}  # which argument is the value
# Sizes and colours: a pixel more or less is a matter of taste and no fault.
LOOKS = {"setContentsMargins", "setSpacing", "setVerticalSpacing", "setColumnStretch",
    "setStretchFactor", "setMinimumSectionSize", "setMinimumHeight", "addWidget", "adjusted",
    "QPointF", "QRect", "QRectF", "QPen", "fromHsl", "drawArc", "drawRoundedRect", "drawEllipse",
    "lineTo"}
FUNCTIONS = (K.FUNCTION_DECL, K.CXX_METHOD, K.CONSTRUCTOR, K.DESTRUCTOR, K.CONVERSION_FUNCTION,
    K.FUNCTION_TEMPLATE)
CLASSES = (K.CLASS_DECL, K.STRUCT_DECL, K.CLASS_TEMPLATE)
SCOPES = CLASSES + (K.NAMESPACE, K.LINKAGE_SPEC, K.UNEXPOSED_DECL)
LITERALS = (K.INTEGER_LITERAL, K.FLOATING_LITERAL, K.CXX_BOOL_LITERAL_EXPR)
NEUTRAL = re.compile(r"\{\}|nullptr|0|[\w:<>]+(\(\)|\{\})")


def flat(text):
    """On one line, without comments."""
    text = re.sub(r'("(?:\\.|[^"\\\n])*")|//[^\n]*|/\*.*?\*/', lambda m: m[1] or " ", text,
        flags=re.S)
    return re.sub(r"\s*\n\s*", " ", text).strip()


def span(node):
    return node.extent.start.offset, node.extent.end.offset


def is_number(type_):
    kind = type_.get_canonical().kind.value
    return T.BOOL.value <= kind <= T.INT128.value or T.FLOAT.value <= kind <= T.LONGDOUBLE.value


def bare(node):
    """What stands there, below the conversions that are not written."""
    children = list(node.get_children())
    while node.kind == K.UNEXPOSED_EXPR and len(children) == 1 and span(node) == span(children[0]):
        node, children = children[0], list(children[0].get_children())
    return node


class Finder:
    """Finds the sites of one file. `macros` are the places where macros are used: what comes out of
    them is left alone."""

    def __init__(self, text, macros):
        self.text, self.macros = text, macros
        self.function, self.result, self.last, self.in_lambda = "", None, -1, False
        self.in_looks = False

    def of(self, node):
        at, to = span(node)
        return self.text[at:to]

    def site(self, node, form, faults, inner, to=None):
        at, end = span(node)
        if not faults or re.search(r"\n\s*#", self.text[at:to or end]):
            return inner
        return [{"at": at, "to": to or end, "form": form, "faults": faults, "inner": inner,
            "function": self.function}]

    def declarations(self, node):
        """The sites in the functions at or below a namespace or a class."""
        if node.kind in SCOPES:
            return [site for child in node.get_children() for site in self.declarations(child)]
        return self.definition(node) if node.kind in FUNCTIONS else []

    def definition(self, node):
        children = list(node.get_children())
        if not children or children[-1].kind != K.COMPOUND_STMT:
            return []
        body = children[-1]
        if re.search(r"\bconstexpr\b", self.text[span(node)[0]:span(body)[0]]):
            return []
        owner = node.semantic_parent
        self.function = (owner.spelling + "::" if owner.kind in CLASSES else "") + node.spelling
        self.result = node.result_type.get_canonical().kind
        statements = list(body.get_children())
        self.last = span(statements[-1])[0] if statements else -1
        initialisers = [c for c in children[:-1] if c.kind.is_expression()]
        return self.all(initialisers if node.kind == K.CONSTRUCTOR else []) + self.find(body)

    def all(self, nodes):
        return [site for node in nodes for site in self.find(node)]

    def find(self, node, statement=False):
        at, to = span(node)
        if any(a <= at and to <= b for a, b in self.macros):
            return []
        handler, children = self.HANDLERS.get(node.kind), list(node.get_children())
        if handler is None and len(children) == 1 and span(node) == span(children[0]):
            return self.find(children[0], statement)
        sites = handler(self, node, children) if handler else self.all(children)
        is_looks = node.spelling.startswith("set") and node.spelling in LOOKS
        if (statement and node.kind.is_expression() and node.kind != K.CXX_THROW_EXPR
                and not is_looks):
            return self.site(node, "drop", [""], sites)
        return sites

    # -- Statements

    def condition(self, node, loop=False):
        inside, text = bare(node), self.of(node)
        # Of these there are sharper faults than the opposite.
        compound = (inside.kind == K.BINARY_OPERATOR or text.startswith("!")
            or inside.spelling.startswith("operator"))
        faults = ["false"] + ([] if loop else ["true"]) + ([] if compound else [f"!({text})"])
        return self.site(node, "condition", [] if inside.kind in LITERALS else faults,
            self.find(node))

    def if_statement(self, node, children):
        sites, rest = [], children
        if re.match(r"if\s+constexpr", self.of(node)):
            return self.block(node, children[1:])
        if rest[0].kind == K.DECL_STMT:
            sites, rest = self.find(rest[0]), rest[1:]
        if rest[0].kind == K.VAR_DECL:  # its use as a condition, not written, comes after it
            sites += self.site(rest[0], "declared " + rest[0].spelling, ["false", "true"],
                self.find(rest[0]))
        else:
            sites += self.condition(rest[0])
            rest = [None] + rest
        return sites + self.block(node, rest[2:])

    def while_loop(self, node, children):
        head = children[0]
        sites = self.find(head) if head.kind == K.VAR_DECL else self.condition(head, True)
        return sites + self.find(children[-1], True)

    def do_loop(self, node, children):
        return self.find(children[0], True) + self.condition(children[1], True)

    def for_loop(self, node, children):
        sites = []
        for child in children[:-1]:
            is_condition = self.text[span(node)[0]:span(child)[0]].count(";") == 1
            sites += self.condition(child, True) if is_condition else self.find(child)
        return sites + self.find(children[-1], True)

    def range_loop(self, node, children):
        return self.all(children[1:-1]) + self.find(children[-1], True)

    def block(self, node, children):
        return [site for child in children for site in self.find(child, True)]

    def case(self, node, children):
        return self.block(node, children[1:])

    def variable(self, node, children):
        name = node.location.offset
        if re.search(r"\b(constexpr|static)\b[^;{}]*$", self.text[max(name - 80, 0):name]):
            return []
        return self.all(c for c in children if c.kind.is_expression() and span(c)[0] >= name
            and self.text[span(c)[0] - 1] != "[")

    def lambda_body(self, node, children):
        around = self.in_lambda, self.result, self.last
        self.in_lambda, self.result, self.last = True, None, -1
        sites = self.find(children[-1]) if children[-1].kind == K.COMPOUND_STMT else []
        self.in_lambda, self.result, self.last = around
        return sites

    def leave(self, node, children):
        (at, to), inner = span(node), self.all(children)
        to += len(re.match(r"\s*;?", self.text[to:])[0])
        if not self.text[at:to].endswith(";"):
            return inner
        if children:
            return self.site(node, "statement", self.neutral(children[0]), inner, to)
        return self.site(node, "leave", [] if at == self.last else [""], inner, to)

    def neutral(self, value):
        """Statements to stand for `return value;`."""
        inside, text = bare(value), self.of(value)
        result = self.result or value.type.get_canonical().kind
        if NEUTRAL.fullmatch(text) or inside.kind in LITERALS:
            return []
        if result == T.BOOL:
            return ["return false;", "return true;"]
        if result == T.VOID:
            return ["return;"]
        if self.in_lambda:
            return [f"return std::decay_t<decltype({text})> {{}};"]
        return [] if result in (T.LVALUEREFERENCE, T.RVALUEREFERENCE) else ["return {};"]

    # -- Expressions

    def binary(self, node, children):
        if len(children) != 2:
            return self.all(children)
        left, right = children
        operator = self.text[span(left)[1]:span(right)[0]].strip()
        inner, left, right = self.all(children), self.of(left), self.of(right)
        if operator in ("&&", "||"):
            other = "||" if operator == "&&" else "&&"
            return self.site(node, "condition", [f"({left}) {other} ({right})", left, right], inner)
        is_size = self.in_looks and any(bare(child).kind in LITERALS for child in children)
        if operator in COMPARISONS or operator in SWAPS and is_number(node.type) and not is_size:
            faults = [f"{left} {swap} {right}" for swap in SWAPS[operator]]
            return self.site(node, "expression", faults, inner)
        return inner

    def unary(self, node, children):
        text, inner = self.of(node), self.all(children)
        for was, now in (("++", "--"), ("--", "++")):
            if text.startswith(was):
                return self.site(node, "expression", [now + text[2:]], inner)
            if text.endswith(was):
                return self.site(node, "expression", [text[:-2] + now], inner)
        if text.startswith("!"):
            return self.site(node, "condition", [text[1:]], inner)
        if text.startswith("-") and is_number(node.type) and not self.in_looks:
            return self.site(node, "expression", [text[1:]], inner)
        return inner

    def call(self, node, children):
        name, text, around = node.spelling, self.of(node), self.in_looks
        self.in_looks = name in LOOKS
        inner, self.in_looks = self.all(children), around
        arguments = [self.of(argument) for argument in node.get_arguments()]
        if name in EXTREMES and "(" in text:
            head, rest = text.split("(", 1)
            return self.site(node, "expression",
                [head.replace(name, EXTREMES[name]) + "(" + rest], inner)
        if name in LIMITED and len(arguments) > 2:
            return self.site(node, "expression", [arguments[LIMITED[name]]], inner)
        if name in ("operator==", "operator!=") and len(children) == 3:
            other = SWAPS[name[len("operator"):]][0]
            left, right = self.of(children[0]), self.of(children[2])
            return self.site(node, "condition", [f"{left} {other} {right}"], inner)
        return inner

    def choice(self, node, children):
        return self.condition(children[0]) + self.all(children[1:])

    def number(self, node, children):
        text = self.of(node)
        zero = re.fullmatch(r"0[xX]?0*[uUlL]*|0*\.?0*[fF]?", text)
        faults = [f"{text} + 1"] + ([] if zero else [f"{text} * 0"])
        return self.site(node, "expression", [] if self.in_looks else faults, [])

    def truth(self, node, children):
        return self.site(node, "expression", ["false" if self.of(node) == "true" else "true"], [])

    def nothing(self, node, children):
        return []

    HANDLERS = {K.IF_STMT: if_statement, K.WHILE_STMT: while_loop, K.DO_STMT: do_loop,
        K.FOR_STMT: for_loop, K.CXX_FOR_RANGE_STMT: range_loop, K.COMPOUND_STMT: block,
        K.CASE_STMT: case, K.DEFAULT_STMT: block, K.VAR_DECL: variable, K.LAMBDA_EXPR: lambda_body,
        K.RETURN_STMT: leave, K.BREAK_STMT: leave, K.CONTINUE_STMT: leave,
        K.BINARY_OPERATOR: binary, K.COMPOUND_ASSIGNMENT_OPERATOR: binary, K.UNARY_OPERATOR: unary,
        K.CALL_EXPR: call, K.CONDITIONAL_OPERATOR: choice, K.INTEGER_LITERAL: number,
        K.FLOATING_LITERAL: number, K.CXX_BOOL_LITERAL_EXPR: truth, K.CXX_UNARY_EXPR: nothing,
        K.STATIC_ASSERT: nothing, K.CLASS_DECL: nothing, K.STRUCT_DECL: nothing}


def nested(sites, at, to):
    """Sites in order, without those that are found twice or do not lie within their neighbours."""
    kept = []
    for site in sorted(sites, key=lambda site: site["at"]):
        if site["at"] >= at and site["to"] <= to:
            site["inner"] = nested(site["inner"], site["at"], site["to"])
            kept.append(site)
            at = site["to"]
    return kept


def find_sites(source, arguments, root, folders):
    """The sites of a compiled file and of the headers of the folders that it includes, by path."""
    parsed = cindex.Index.create().parse(source, args=arguments,
        options=cindex.TranslationUnit.PARSE_DETAILED_PROCESSING_RECORD)
    nodes, macros = collections.defaultdict(list), collections.defaultdict(list)
    wanted = tuple(f"{root}/{folder}/" for folder in folders)
    for node in parsed.cursor.get_children():
        name = node.location.file and node.location.file.name
        if name and name.startswith(wanted):
            if node.kind == K.MACRO_INSTANTIATION:
                macros[name].append(span(node))
            elif not node.kind.is_preprocessing():
                nodes[name].append(node)
    found = {}
    for name in nodes:
        text = pathlib.Path(name).read_text("latin-1")
        finder = Finder(text, macros[name])
        sites = [site for node in nodes[name] for site in finder.declarations(node)]
        found[name[len(str(root)) + 1:]] = nested(sites, 0, len(text))
    return found
