"""The type stubs declare what the module has, with the same arguments, and nothing else."""

import ast
import inspect
import pathlib
import re

import gfx

STUB = pathlib.Path(gfx.__file__).with_name("__init__.pyi")
ALSO_DECLARED = {"name", "value"}  # of every enumeration


def arguments(node):
    return [a.arg for a in node.args.args if a.arg != "self"]


def declared(body, prefix=""):
    found = {}
    for node in body:
        if isinstance(node, ast.ClassDef):
            found.update({prefix + node.name: None})
            found.update(declared(node.body, prefix + node.name + "."))
        elif isinstance(node, ast.FunctionDef):
            is_property = any(getattr(d, "id", getattr(d, "attr", "")) in ("property", "setter")
                              for d in node.decorator_list)
            is_call = not is_property and not node.name.startswith("__")
            found[prefix + node.name] = arguments(node) if is_call else None
        elif isinstance(node, ast.AnnAssign):
            found[prefix + node.target.id] = None
    return found


def present(owner, names, prefix=""):
    found = {}
    for name in names:
        member = getattr(owner, name)
        found[prefix + name] = None
        if inspect.isclass(member):
            found.update(present(member, [n for n in vars(member) if not n.startswith("_")],
                                 prefix + name + "."))
        elif callable(member) and not isinstance(member, property):
            inside = member.__doc__.splitlines()[0].partition("(")[2].rpartition(") ->")[0]
            named = re.findall(r"(?:^|, )(\w+):", inside)
            found[prefix + name] = [n for n in named if n != "self"]
    return found


def test_stubs_declare_what_there_is():
    stub = {k: v for k, v in declared(ast.parse(STUB.read_text()).body).items()
            if not k.split(".")[-1].startswith("__")}
    module = present(gfx, gfx.__all__)
    left_out = {k for k in set(stub) ^ set(module) if k.split(".")[-1] not in ALSO_DECLARED}
    assert not left_out
    assert {k: v for k, v in module.items() if k in stub} == \
        {k: v for k, v in stub.items() if k in module}


def test_everything_public_has_its_text_in_help():
    silent = [name for name in gfx.__all__ if not inspect.getdoc(getattr(gfx, name))]
    for method, value in vars(gfx.Surface).items():
        if not method.startswith("_") and not (inspect.getdoc(value) or "").strip():
            silent.append(method)
    assert not silent
