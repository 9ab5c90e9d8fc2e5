#!/usr/bin/env python3
"""Guards the storeys of the house and draws them.

    cmake/storeys.py check     refuses includes against the storeys, circles of folders, and a picture that is not true
    cmake/storeys.py draw      puts the picture of now into docs/architecture.md
    cmake/storeys.py list      every file with its storey

The table is what the build reads: plotka_add_storey() in src/CMakeLists.txt, lowest first, and plotka_sources() in the
CMakeLists.txt of each folder. A file includes its own storey and those below.
"""
import re
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
SRC = ROOT / "src"
PICTURE = ROOT / "docs" / "architecture.md"
FENCE = re.compile(r"(?<=```mermaid\n)flowchart TD\n.*?(?=```)", re.S)
INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]+["<]([^">]+/[^">]+)[">]', re.M)


def calls(path, function):
    """The arguments of each call of the function in a CMakeLists.txt."""
    text = re.sub(r"#.*", "", path.read_text())
    return [found.split() for found in re.findall(rf"^\s*{function}\(([^)]*)\)", text, re.M)]


class House:
    def __init__(self):
        self.storeys = []  # lowest first
        self.known_circles = {}  # of each storey: the folders of which it says that they know one another
        self.storey_of = {}  # of each file, as it is included
        self.faults = []
        for storey, _, *circle in calls(SRC / "CMakeLists.txt", "plotka_add_storey"):
            self.storeys.append(storey)
            self.known_circles[storey] = set(circle[1:])
        for listing in sorted(SRC.rglob("CMakeLists.txt")):
            for call in calls(listing, "plotka_sources"):
                self.place(listing.parent, call)
        for path in sorted([*SRC.rglob("*.cpp"), *SRC.rglob("*.h")]):
            if path.relative_to(SRC).as_posix() not in self.storey_of:
                self.faults.append(f"{path.relative_to(ROOT)} stands in no storey")
        self.includes = [(file, found) for file in self.storey_of for found in self.included_by(file)]

    def place(self, folder, call):
        storey, *words = call
        if words[0] == "TARGET":
            words = words[2:]
        for word in words:
            if word in ("PRIVATE", "PUBLIC"):
                continue
            file = (folder / word).relative_to(SRC).as_posix()
            if file in self.storey_of:
                self.faults.append(f"src/{file} is named twice")
            elif not (folder / word).is_file():
                self.faults.append(f"src/{file} is named and is not there")
            else:
                self.storey_of[file] = storey

    def included_by(self, file):
        return [found for found in INCLUDE.findall((SRC / file).read_text()) if found in self.storey_of]

    def climbs(self):
        """The includes that lead to a higher storey."""
        height = self.storeys.index
        return [
            f"src/{file}: {self.storey_of[file]} does not know {found}, which is in {self.storey_of[found]}"
            for file, found in self.includes
            if height(self.storey_of[found]) > height(self.storey_of[file])
        ]

    def folders(self, storey):
        """The folders that have files in the storey, each with those of them whose files it includes."""
        known = {folder_of(file): set() for file, place in self.storey_of.items() if place == storey}
        for file, found in self.includes:
            if self.storey_of[file] == self.storey_of[found] == storey and folder_of(file) != folder_of(found):
                known[folder_of(file)].add(folder_of(found))
        return known

    def circles(self):
        """The circles of folders of one storey, but for those that the table knows."""
        faults = []
        for storey in self.storeys:
            for group in groups(self.folders(storey)):
                names = {folder.removeprefix(storey + "/") for folder in group}
                if len(group) > 1 and not names <= self.known_circles[storey]:
                    faults.append(f"{storey}: {', '.join(sorted(group))} include one another")
        return faults

    def picture(self):
        lines = ["flowchart TD"]
        for storey in reversed(self.storeys):
            known = self.folders(storey)
            joined = groups(known)
            lines.append(f"    subgraph {storey}")
            for group in joined:
                lines.append(f'        {node(storey, group)}["{" · ".join(sorted(group))}"]')
            if not joined:
                lines.append(f'        {storey}_none["nothing yet"]')
            lines += [f"        {node(storey, a)} --> {node(storey, b)}" for a, b in shortest_arrows(known, joined)]
            lines.append("    end")
        lines += [f"    {upper} --> {lower}" for lower, upper in zip(self.storeys, self.storeys[1:])][::-1]
        return "\n".join(lines) + "\n"


def folder_of(file):
    return file.rpartition("/")[0]


def node(storey, group):
    return f"{storey}_{min(group).replace('/', '_')}"


def reach(known, start):
    """All that is included from the folder, however far."""
    found, ahead = set(), [start]
    while ahead:
        for folder in known[ahead.pop()] - found:
            found.add(folder)
            ahead.append(folder)
    return found


def groups(known):
    """The folders, together where they include one another."""
    found = []
    for folder in sorted(known):
        mutual = {other for other in reach(known, folder) if folder in reach(known, other)} | {folder}
        if frozenset(mutual) not in found:
            found.append(frozenset(mutual))
    return found


def shortest_arrows(known, joined):
    """Who includes whom among the groups, without the arrows that follow from two others."""
    below = {group: {other for other in joined if other != group and reach(known, min(group)) & other} for group in joined}
    return [
        (group, other)
        for group in joined
        for other in joined
        if other in below[group] and not any(other in below[between] for between in below[group])
    ]


def main(arguments):
    house = House()
    if arguments == ["list"]:
        for file, storey in sorted(house.storey_of.items(), key=lambda item: (house.storeys.index(item[1]), item[0])):
            print(f"{storey:<12} src/{file}")
        return 0
    text = PICTURE.read_text()
    drawn = FENCE.sub(lambda _: house.picture(), text, count=1)
    if arguments == ["draw"]:
        PICTURE.write_text(drawn)
        return 0
    if arguments != ["check"]:
        print(__doc__, file=sys.stderr)
        return 2
    faults = house.faults + house.climbs() + house.circles()
    if drawn != text:
        faults.append("docs/architecture.md: the picture is not that of now; cmake/storeys.py draw")
    print(*faults, sep="\n", end="\n" if faults else "")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
