#!/usr/bin/env python3
"""Builds everything that follows from the export catalogue.

The catalogue is the set of `*.exports` files under src/<subsystem>/. Each
holds declarations with brace products, written once for a whole family:

    # Doc comment of the family (copied into the public header).
    TavStatus taviAbs_{16s,32f}_{C1,C3,C4,AC4}R(const $T* pSrc, int srcStep, ...)
    share taviMalloc_{8u_C4,32f_C1}     # every listed name runs the first one's code

`$T` is the element type of the name's first type code; for a conversion code
such as `8u16s`, `$S` and `$D` are the source and destination types.

Outputs (all stamped as generated):
  exports.S      two-instruction stubs and the constant table, slots in
                 alphabetical order of the names
  exports.map    linker version script: only catalogue names are global
  exports.txt    `name implementation` lines in slot order, read by the tests
  own_exports.h  declarations of the hidden implementations (`own_<name>`)
  include/tavi_<subsystem>.h, include/tavr_volume.h  public declarations
"""
import itertools
import os
import re
import sys

STAMP = "generated from the export catalogue (the .exports files under src) by tools/gen_exports.py - do not edit"
TYPES = {
    "1u": "Tav8u", "8u": "Tav8u", "8s": "Tav8s", "16u": "Tav16u", "16s": "Tav16s",
    "24u": "Tav8u", "32u": "Tav32u", "32s": "Tav32s", "32f": "Tav32f", "64f": "Tav64f",
    "32sc": "Tav32sc", "32fc": "Tav32fc",
}
TYPE_RE = re.compile(r"(32sc|32fc|16u|16s|24u|32u|32s|32f|64f|1u|8u|8s)")
SUBSYSTEMS = ["frame", "arith", "move", "decide", "stats", "filter", "geometry",
              "transform", "correlate", "feature"]
DECL_RE = re.compile(r"^(?P<ret>.+?[\s\*])(?P<name>(?:tavi|tavr)[A-Za-z0-9_{},]+)\s*\((?P<args>.*)\)\s*;?$")


def expand(text):
    """Cartesian expansion of {a,b} groups, left to right."""
    m = re.search(r"\{([^{}]*)\}", text)
    if not m:
        return [text]
    out = []
    for alt in m.group(1).split(","):
        out.extend(expand(text[:m.start()] + alt + text[m.end():]))
    return out


def type_codes(name):
    for part in name.split("_")[1:]:
        codes = TYPE_RE.findall(part)
        if codes and "".join(codes) == part:
            return codes
    return []


def substitute(name, args, where):
    codes = type_codes(name)
    if ("$T" in args or "$S" in args or "$D" in args) and not codes:
        sys.exit(f"{where}: {name} has no type code for its signature")
    if codes:
        args = args.replace("$T", TYPES[codes[0]]).replace("$S", TYPES[codes[0]])
        args = args.replace("$D", TYPES[codes[-1]])
    return args


def read_catalogue(root):
    exports = {}  # name -> dict(ret, args, sub, doc)
    shares = []   # lists of names
    for sub in SUBSYSTEMS + ["volume"]:
        d = os.path.join(root, "src", sub)
        if not os.path.isdir(d):
            continue
        for fn in sorted(os.listdir(d)):
            if not fn.endswith(".exports"):
                continue
            path = os.path.join(d, fn)
            doc = []
            for lineno, raw in enumerate(open(path, encoding="utf-8"), 1):
                line = raw.strip()
                where = f"{path}:{lineno}"
                if not line:
                    doc = []
                    continue
                if line.startswith("#"):
                    doc.append(line[1:].strip())
                    continue
                if line.startswith("share "):
                    names = []
                    for tok in line[6:].split("#")[0].split():
                        names.extend(expand(tok))
                    if len(names) < 2:
                        sys.exit(f"{where}: a share needs two names or more")
                    shares.append((names, where))
                    continue
                m = DECL_RE.match(line)
                if not m:
                    sys.exit(f"{where}: cannot read declaration: {line}")
                ret = m.group("ret").strip()
                for name in expand(m.group("name")):
                    if name in exports:
                        sys.exit(f"{where}: {name} declared twice")
                    args = substitute(name, m.group("args"), where)
                    r = substitute(name, ret, where)
                    exports[name] = dict(ret=r, args=args, sub=sub, doc=list(doc), where=where)
                doc = []
    impl = {n: n for n in exports}
    for names, where in shares:
        head = names[0]
        for n in names:
            if n not in exports:
                sys.exit(f"{where}: shared name {n} is not declared")
            e, h = exports[n], exports[head]
            if impl[n] != n:
                sys.exit(f"{where}: {n} is in two share groups")
            # Members may spell their element types differently (Tav32f and
            # Tav32s); they share code because the pixel bytes are the same.
            if n != head and len(e["args"].split(",")) != len(h["args"].split(",")):
                sys.exit(f"{where}: {n} and {head} differ in their arguments")
            impl[n] = head
    return exports, impl


def write(path, text):
    old = None
    if os.path.exists(path):
        with open(path, encoding="utf-8") as f:
            old = f.read()
    if old != text:
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "w", encoding="utf-8") as f:
            f.write(text)


def main():
    root, out = sys.argv[1], sys.argv[2]
    exports, impl = read_catalogue(root)
    names = sorted(exports, key=lambda s: s.encode())

    s = [f"# {STAMP}", '\t.section .note.GNU-stack,"",@progbits', "\t.text"]
    for i, n in enumerate(names):
        s += ["\t.p2align 4", f"\t.globl {n}", f"\t.type {n}, @function", f"{n}:",
              f"\tleaq tav_export_table+{8 * i}(%rip), %r11", "\tjmpq *(%r11)",
              f"\t.size {n}, .-{n}"]
    s += ['\t.section .data.rel.ro,"aw"', "\t.p2align 6", "\t.hidden tav_export_table",
          "\t.type tav_export_table, @object", "tav_export_table:"]
    s += [f"\t.quad own_{impl[n]}" for n in names]
    s += [f"\t.size tav_export_table, {8 * len(names)}", ""]
    write(os.path.join(out, "exports.S"), "\n".join(s))

    write(os.path.join(out, "exports.map"),
          f"/* {STAMP} */\n{{\n  global:\n" + "".join(f"    {n};\n" for n in names) + "  local: *;\n};\n")
    write(os.path.join(out, "exports.txt"), "".join(f"{n} {impl[n]}\n" for n in names))

    h = [f"/* {STAMP} */", "#pragma once", '#include "tavtypes.h"',
         "#define TAV_OWN extern \"C\" __attribute__((visibility(\"hidden\")))", ""]
    for n in names:
        if impl[n] == n:
            e = exports[n]
            h.append(f"TAV_OWN {e['ret']} own_{n}({e['args']});")
    write(os.path.join(out, "own_exports.h"), "\n".join(h) + "\n")

    for sub in SUBSYSTEMS + ["volume"]:
        hname = "tavr_volume.h" if sub == "volume" else f"tavi_{sub}.h"
        guard = hname.upper().replace(".", "_")
        lines = [f"/* {STAMP} */", f"#ifndef {guard}", f"#define {guard}", "",
                 '#include "tavtypes.h"', "", "#ifdef __cplusplus", 'extern "C" {', "#endif", ""]
        last_doc = None
        for n in sorted((n for n in exports if exports[n]["sub"] == sub),
                        key=lambda n: (exports[n]["where"].split(":")[0], int(exports[n]["where"].split(":")[1]), n.encode())):
            e = exports[n]
            if e["doc"] and e["doc"] != last_doc:
                lines.append("")
                lines.append("/* " + "\n   ".join(e["doc"]) + " */")
            last_doc = e["doc"]
            lines.append(f"{e['ret']} {n}({e['args'] or 'void'});")
        lines += ["", "#ifdef __cplusplus", "}", "#endif", f"#endif /* {guard} */", ""]
        write(os.path.join(out, "include", hname), "\n".join(lines))


if __name__ == "__main__":
    main()
