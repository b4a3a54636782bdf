"""The balancers of the npm registry on a few equations: each in a process of its
own under a time limit, installed into a scratch folder of the benchmarks."""

import json
import pathlib
import shutil
import subprocess

PACKAGES = ("reaction-balancer", "chem-eb")
EQUATIONS = {
    "H2+O2=H2O": "2,1,2",
    "C3H8+O2=CO2+H2O": "1,5,3,4",
    "Ca(OH)2+H3PO4=Ca3(PO4)2+H2O": "3,2,1,6",
    "KMnO4+HCl=KCl+MnCl2+H2O+Cl2": "2,16,2,2,8,5",
    "MnO4{-}+Fe{2+}+H{+}=Mn{2+}+Fe{3+}+H2O": "1,5,8,1,5,4",
    "CuSO4,5H2O=CuSO4+H2O": "1,1,5",
    "K4[Fe(CN)6]+FeCl3=Fe4[Fe(CN)6]3+KCl": "3,4,1,12",
}
SECONDS = 5


def installed(folder: pathlib.Path) -> bool:
    """Installs what is missing; False when it cannot be (no npm, no network)."""
    if all((folder / "node_modules" / name).is_dir() for name in PACKAGES):
        return True
    npm = shutil.which("npm")
    if npm is None:
        return False
    folder.mkdir(parents=True, exist_ok=True)
    (folder / "package.json").write_text('{"private": true}\n', encoding="utf-8")
    try:
        done = subprocess.run([npm, "install", "--silent", *PACKAGES], cwd=folder, capture_output=True, timeout=180, check=False)
    except subprocess.TimeoutExpired:
        return False
    return done.returncode == 0


def coefficients_in(answer: str) -> str:
    """"2H2 + O2 = 2H2O" as "2,1,2"; a list of numbers stays one."""
    if not answer or answer.replace(",", "").isdigit():
        return answer
    found = []
    for term in answer.replace("=", "+").split(" + "):
        term = term.strip()
        digits = term[: len(term) - len(term.lstrip("0123456789"))]
        found.append(digits or "1")
    return ",".join(found)


def measured(script: pathlib.Path, folder: pathlib.Path):
    """By package: the microseconds by equation, and what it cannot take, with why."""
    result = {}
    for name in PACKAGES:
        times, failures = {}, {}
        for equation, right in EQUATIONS.items():
            try:
                done = subprocess.run(["node", script, folder, name, equation], capture_output=True, text=True, timeout=SECONDS, check=False)
            except subprocess.TimeoutExpired:
                failures[equation] = f"no answer in {SECONDS} s"
                continue
            try:
                said = json.loads(done.stdout.splitlines()[-1])
            except (IndexError, ValueError):
                failures[equation] = "ends in an error"
                continue
            # Only ' = ' of the whole line parts the sides, as the package writes it.
            answer = coefficients_in((said["answer"] or "").replace(" = ", " + "))
            if answer == right:
                times[equation] = said["micros"]
            else:
                failures[equation] = "no answer" if not answer else "a wrong answer"
        result[name] = (times, failures)
    return result
