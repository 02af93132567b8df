"""What Doxygen reads in place of a package in Python: each module that hosts import, with the names that they see
there, also where those are defined in modules within, and with what stands in the sources of each, once:

- the docstring of a class, a function or a property, and the words that a descriptor is made with;
- the comment `#:` ahead of an attribute, or behind it;
- the types, which Doxygen can't read, as words of their own."""

import ast
import copy
import re

# What a descriptor gives to whoever reads it.
DESCRIPTORS = {"Text": "str", "PathText": "Union[str, os.PathLike[str]]", "Number": "int", "Truth": "bool, only read",
               "OfTheProcess": "only written, and counts for the whole process"}  # fmt: skip
OVERLOAD = "overload"


def decorators(node):
    return {ast.unparse(each) for each in getattr(node, "decorator_list", ())}


def is_public(name):
    return not name.startswith("_")


def with_types(words, heading, types):
    return f"{words}\n\n@par {heading}\n<tt>{types}</tt>" if words and types else words


class Source:
    """A module as it is written."""

    def __init__(self, path):
        text = path.read_text(encoding="utf-8")
        self.lines = text.split("\n")
        self.tree = ast.parse(text)
        self.named = {node.name: node for node in self.tree.body if isinstance(node, (ast.ClassDef, ast.FunctionDef))}

    def comment(self, node):
        """What the comment `#:` says of an attribute."""
        behind = re.search(r"\s#: (.*)$", self.lines[node.end_lineno - 1])
        if behind:
            return behind[1]
        first = node.lineno - 1
        while first and self.lines[first - 1].lstrip().startswith("#:"):
            first -= 1
        return "\n".join(line.strip()[2:].strip() for line in self.lines[first:node.lineno - 1])


class Package:
    def __init__(self, folder):
        self.name = folder.name
        self.sources = {path.stem: Source(path) for path in sorted(folder.glob("*.py"))}
        exported = self.sources["__init__"].tree
        self.exported = next(ast.literal_eval(node.value) for node in exported.body
                             if isinstance(node, ast.Assign) and ast.unparse(node.targets[0]) == "__all__")
        self.told = set()

    def find(self, name):
        """(source, node) of a class or a function, wherever it is."""
        return next(((source, source.named[name]) for source in self.sources.values() if name in source.named),
                    (None, None))

    def modules(self):
        """(name, text) of each module that hosts import."""
        within = [self.find(name) for name in self.exported]
        public = {name: [(source, node) for node in source.tree.body] for name, source in self.sources.items()
                  if is_public(name)}
        # Names before words: words refer to names.
        for _ in range(2):
            texts = {"__init__": "\n".join(self.module("", self.sources["__init__"], within))}
            texts |= {name: "\n".join(self.module(name, self.sources[name], nodes)) for name, nodes in public.items()}
        return texts

    def module(self, name, source, nodes):
        scope = "::".join(filter(None, (self.name, name)))
        yield from self.said(ast.get_docstring(source.tree) or "", scope, "", f"@namespace {scope}\n")
        yield ""
        for each, node in nodes:
            if isinstance(node, ast.ClassDef) and is_public(node.name):
                yield from self.a_class(each, node, scope)
            elif isinstance(node, ast.FunctionDef) and is_public(node.name):
                yield from self.function(node, scope, "")
            elif isinstance(node, (ast.Assign, ast.AnnAssign)):
                yield from self.attribute(each, node, scope, "")

    def said(self, words, scope, indent, mark=""):
        """Words as a comment of Doxygen's, with references to the names that there are."""
        def reference(match):
            path = match[1].removeprefix(f"{self.name}.").replace(".", "::")
            known = (f"{place}::{path}" for place in (scope, self.name) if f"{place}::{path}" in self.told)
            found = next(known, None)
            return f'@ref {found} "{match[1]}"' if found else match[0]

        if not words:
            return
        text = re.sub(r"``([\w.]+)``", reference, re.sub(r"::(?=\n|$)", ":", words))
        for number, line in enumerate((mark + text).split("\n")):
            yield f"{indent}{'#' if number else '##'} {line}".rstrip()

    def function(self, node, scope, indent):
        self.told.add(f"{scope}::{node.name}")
        given = copy.deepcopy(node.args)
        if indent and "staticmethod" not in decorators(node):
            given.args.pop(0)
        returned = f" -> {ast.unparse(node.returns)}" if node.returns else ""
        types = f"{node.name}({ast.unparse(given)}){returned}"
        if "pytest.fixture" in decorators(node):
            types = "a fixture of pytest's"
        for each in (*given.args, *given.kwonlyargs):
            each.annotation = None
        yield from self.said(with_types(ast.get_docstring(node) or "", "Types", types), scope, indent)
        # Doxygen takes the star that stands alone for the next argument's.
        yield f"{indent}def {node.name}({ast.unparse(given).replace('*, ', '')}):"
        yield f"{indent}    pass"

    def property(self, name, scope, words, types):
        """An attribute that objects have, as a method of theirs sets it; Doxygen takes all others for the class's
        own."""
        self.told.add(f"{scope}::{name}")
        yield "    def _set(self):"
        yield from self.said(with_types(words, "Type", types), scope, "        ")
        yield f"        self.{name} = None"

    def attribute(self, source, node, scope, indent):
        """What is set in a class, a module or an object's making."""
        targets = node.targets if isinstance(node, ast.Assign) else [node.target]
        if isinstance(targets[0], ast.Tuple):
            targets = targets[0].elts
        types = ast.unparse(node.annotation) if isinstance(node, ast.AnnAssign) else ""
        words, types = self.descriptor(node.value) or (source.comment(node), types)
        for target in targets:
            name = target.attr if isinstance(target, ast.Attribute) else getattr(target, "id", "_")
            if not is_public(name):
                continue
            if indent and not isinstance(node.value, ast.Constant):
                yield from self.property(name, scope, words, types)
                continue
            self.told.add(f"{scope}::{name}")
            yield from self.said(words, scope, indent)
            yield f"{indent}{name} = {ast.unparse(node.value) if isinstance(node.value, ast.Constant) else None}"

    def descriptor(self, call):
        """(words, type) of a descriptor, or of a function that makes one."""
        if not isinstance(call, ast.Call):
            return None
        maker = ast.unparse(call.func)
        if maker not in DESCRIPTORS:
            _, made = self.find(maker)
            returned = made.body[-1] if isinstance(made, ast.FunctionDef) else None
            return self.descriptor(returned.value) if isinstance(returned, ast.Return) else None
        return ast.literal_eval(call.args[0]), DESCRIPTORS[maker]

    def members(self, source, node):
        """(source, node) of all that a class has of its own, or of a class that hosts don't see."""
        for each in node.body:
            yield source, each
            if isinstance(each, ast.FunctionDef) and each.name == "__init__":
                yield from ((source, made) for made in ast.walk(each) if self.is_of_an_object(made))
        for base in node.bases:
            within, behind = self.find(ast.unparse(base).partition("[")[0])
            if behind and behind.name not in self.exported and within is not None:
                yield from self.members(within, behind)

    @staticmethod
    def is_of_an_object(node):
        if not isinstance(node, (ast.Assign, ast.AnnAssign)):
            return False
        target = node.targets[0] if isinstance(node, ast.Assign) else node.target
        first = target.elts[0] if isinstance(target, ast.Tuple) else target
        return isinstance(first, ast.Attribute) and ast.unparse(first.value) == "self"

    def a_class(self, source, node, scope):
        inner = f"{scope}::{node.name}"
        self.told.add(inner)
        seen = [ast.unparse(base) for base in node.bases]
        bases = [base for base in seen if base in self.exported or not self.find(base.partition("[")[0])[1]]
        yield from self.said(ast.get_docstring(node) or "", inner, "")
        yield f"class {node.name}({', '.join(bases)}):" if bases else f"class {node.name}:"
        yield "    pass"
        done = set()
        for each, member in self.members(source, node):
            name = getattr(member, "name", "")
            is_new = isinstance(member, ast.FunctionDef) and is_public(name) and name not in done
            if is_new and OVERLOAD not in decorators(member):
                done.add(name)
                if "property" in decorators(member):
                    yield from self.property(name, inner, ast.get_docstring(member) or "", ast.unparse(member.returns))
                else:
                    yield from self.function(member, inner, "    ")
            elif isinstance(member, (ast.Assign, ast.AnnAssign)):
                yield from self.attribute(each, member, inner, "    ")
        # A comment right behind a last attribute would be lost, and the attribute with it.
        yield ""


def write(folder, into):
    """Puts the modules of a package where Doxygen reads them."""
    package = Package(folder)
    (into / package.name).mkdir(parents=True)
    for name, text in package.modules().items():
        (into / package.name / f"{name}.py").write_text(text + "\n", encoding="utf-8")
