#!/usr/bin/env python3
"""Every #include between the folders of src/ follows an allowed arrow."""
import pathlib
import re
import sys

LOGIC = {
    "base": set(),
    "chemistry": {"base"},
    "equation_files": {"base", "chemistry"},
    "balancing": {"base", "chemistry", "equation_files"},
    "exercise": {"base", "chemistry", "equation_files", "balancing"},
    "progress": {"base", "chemistry", "equation_files", "balancing"},
    "charts": {"base", "progress"},
    "simulation": {"base"},
    "tools": {"base"},
    "help": {"base"},
    "editor": {"base", "chemistry", "equation_files", "balancing"},
    "platform": {"base"},
    "forms": {"base", "platform"},
}
WINDOWS_ALSO = {"forms", "platform"}
# A logic file knows Qt Core at most.
QT_ABOVE_CORE = re.compile(
    r"#include <(Qt(Gui|Widgets|Network|Test)/|Q(Widget|Application|GuiApplication|Dialog|MessageBox|Color|Pixmap|Image|Painter|Font|Label"
    r"|LineEdit|PushButton|MainWindow|Menu|Action|Clipboard|Screen|Network\w*)\b)"
)


def faults_of(path: pathlib.Path, root: pathlib.Path) -> list[str]:
    parts = path.relative_to(root).parts
    if len(parts) < 2 or parts[0] not in LOGIC:
        return []
    folder = parts[0]
    in_windows = "windows" in parts
    allowed = LOGIC[folder] | {folder} | (WINDOWS_ALSO if in_windows else set())
    is_logic = not in_windows and folder not in WINDOWS_ALSO
    faults = []
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        if match := re.match(r'#include "(\w+)/([\w/]+)', line):
            if match[1] not in allowed:
                faults.append(f"{path}:{number}: {folder} may not use {match[1]}")
            if is_logic and match[2].startswith("windows/"):
                faults.append(f"{path}:{number}: a logic file includes a window")
        if is_logic and QT_ABOVE_CORE.match(line):
            faults.append(f"{path}:{number}: a logic file includes {line.split()[1]}")
    return faults


def main() -> int:
    root = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else "src")
    faults = [fault for path in sorted(root.rglob("*.[hc]*")) for fault in faults_of(path, root)]
    print("\n".join(faults) if faults else "arrows hold")
    return bool(faults)


if __name__ == "__main__":
    sys.exit(main())
