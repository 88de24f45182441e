#!/usr/bin/env python3
"""Lists the files of packages with their sums and licences, as SPDX 2.3 in JSON.

  file_list.py --name NAME [--version VERSION] --output FILE PACKAGE...

A package is a folder, as that for Windows, or one of Debian's. Links are left out: what they lead to is
a file. The version is that of the sources, unless another is said. A program or a library whose licence is not known here ends the list: nothing is shipped whose
terms nobody has looked up. SOURCE_DATE_EPOCH is the time of making it, so that the same packages have
the same list.
"""
import argparse
import datetime
import fnmatch
import hashlib
import json
import os
import re
import subprocess
import sys
import tarfile
from pathlib import Path

# What others have made, by the name that it is shipped under; the notices tell the whole of it.
OTHERS = [
    ("*/Qt?Core.dll", "LGPL-3.0-only"),
    ("*/zlib1.dll", "Zlib"),
    ("*/libgcc_s_*.dll", "GPL-3.0-or-later WITH GCC-exception-3.1"),
    ("*/libstdc++-6.dll", "GPL-3.0-or-later WITH GCC-exception-3.1"),
    ("*/libwinpthread-1.dll", "MIT AND BSD-3-Clause"),
    ("*/messages/qt_*.qm", "GPL-3.0-only WITH Qt-GPL-exception-1.0"),
]
# The library's own sources name no licence.
OWN_PROGRAMS = ["*/libKyr*.dll", "*/libKyr*.so*", "*/libKyr*.dll.a", "*/kyr.exe", "*/bin/kyr",
                "*/kyr-backtrace", "*/lib/debug/*.debug"]
PROGRAM_HEADS = (b"MZ", b"\x7fELF")


def licence(name, content):
    """An SPDX expression for what others have made; NONE for what is the library's own."""
    for pattern, expression in OTHERS:
        if fnmatch.fnmatch("/" + name, pattern):
            return expression
    is_own = any(fnmatch.fnmatch("/" + name, pattern) for pattern in OWN_PROGRAMS)
    if content.startswith(PROGRAM_HEADS) and not is_own:
        sys.exit(f"{name}: its licence is not known to {Path(__file__).name}")
    return "NONE"


def version_of_sources():
    text = (Path(__file__).resolve().parents[1] / "CMakeLists.txt").read_text()
    code = re.search(r"^project\(Kyr VERSION ([0-9.]+)", text, re.M)
    release = re.search(r"^set\(KYR_PACKAGE_RELEASE ([0-9]+)\)", text, re.M)
    return f"{code[1]}-{release[1]}"


class Package:
    def __init__(self, name, version, files):
        self.name, self.version, self.more = name, version, {}
        self.files = sorted(files)  # pairs of name and content


def package_of_folder(folder, name, version):
    files = [path for path in folder.rglob("*") if path.is_file() and not path.is_symlink()]
    return Package(name, version,
                   [(path.relative_to(folder).as_posix(), path.read_bytes()) for path in files])


def package_of_debian(archive):
    def field(name):
        return subprocess.run(["dpkg-deb", "--field", archive, name], check=True, text=True,
                              capture_output=True).stdout.strip()

    with subprocess.Popen(["dpkg-deb", "--fsys-tarfile", archive], stdout=subprocess.PIPE) as unpack:
        with tarfile.open(fileobj=unpack.stdout, mode="r|") as tar:
            files = [(entry.name.removeprefix("./"), tar.extractfile(entry).read())
                     for entry in tar if entry.isfile()]
    if unpack.returncode != 0:
        sys.exit(f"{archive}: dpkg-deb cannot unpack it")
    package = Package(field("Package"), field("Version"), files)
    place = f"pkg:deb/debian/{package.name}@{package.version}?arch={field('Architecture')}"
    package.more = {
        "packageFileName": archive.name,
        "checksums": [checksum("SHA256", archive.read_bytes())],
        "externalRefs": [{"referenceCategory": "PACKAGE-MANAGER", "referenceType": "purl",
                          "referenceLocator": place}],
    }
    return package


def checksum(kind, content):
    return {"algorithm": kind, "checksumValue": hashlib.new(kind, content).hexdigest()}


def describe_file(identity, name, content):
    expression = licence(name, content)
    return {
        "SPDXID": identity,
        "fileName": "./" + name,
        "checksums": [checksum("SHA1", content), checksum("SHA256", content)],
        "licenseConcluded": "NOASSERTION" if expression == "NONE" else expression,
        "licenseInfoInFiles": ["NOASSERTION"],
        "copyrightText": "NOASSERTION",
    }


def verification_code(files):
    sums = sorted(each["checksums"][0]["checksumValue"] for each in files)
    return hashlib.sha1("".join(sums).encode()).hexdigest()


def describe_package(identity, package, files):
    return {
        "SPDXID": identity,
        "name": package.name,
        "versionInfo": package.version,
        "downloadLocation": "NOASSERTION",
        "filesAnalyzed": True,
        "packageVerificationCode": {"packageVerificationCodeValue": verification_code(files)},
        "licenseConcluded": "NOASSERTION",
        "licenseDeclared": "NONE",
        "licenseInfoFromFiles": ["NOASSERTION"],
        "copyrightText": "NOASSERTION",
        **package.more,
    }


def related(one, kind, other):
    return {"spdxElementId": one, "relationshipType": kind, "relatedSpdxElement": other}


def make_document(name, version, packages):
    described, files, relations = [], [], []
    for number, package in enumerate(packages, 1):
        identity = f"SPDXRef-Package-{number}"
        own = [describe_file(f"SPDXRef-File-{number}-{index}", *each)
               for index, each in enumerate(package.files, 1)]
        described.append(describe_package(identity, package, own))
        relations.append(related("SPDXRef-DOCUMENT", "DESCRIBES", identity))
        relations += [related(identity, "CONTAINS", each["SPDXID"]) for each in own]
        files += own
    content = hashlib.sha256(json.dumps([described, files]).encode()).hexdigest()
    now = datetime.datetime.now(datetime.timezone.utc).timestamp()
    made = datetime.datetime.fromtimestamp(int(os.environ.get("SOURCE_DATE_EPOCH", now)),
                                           datetime.timezone.utc)
    return {
        "spdxVersion": "SPDX-2.3",
        "dataLicense": "CC0-1.0",
        "SPDXID": "SPDXRef-DOCUMENT",
        "name": f"{name}-{version}",
        "documentNamespace": f"https://libkyr.example/spdx/{name}-{version}-{content}",
        "creationInfo": {"created": made.strftime("%Y-%m-%dT%H:%M:%SZ"),
                         "creators": ["Tool: libKyr-file_list"]},
        "packages": described,
        "files": files,
        "relationships": relations,
    }


def main():
    parser = argparse.ArgumentParser(description="Lists the files of packages as SPDX 2.3.")
    parser.add_argument("--name", required=True)
    parser.add_argument("--version", default=version_of_sources())
    parser.add_argument("--output", required=True, type=Path)
    parser.add_argument("packages", nargs="+", type=Path)
    words = parser.parse_args()
    packages = [package_of_folder(path, words.name, words.version) if path.is_dir()
                else package_of_debian(path) for path in sorted(words.packages)]
    for path, package in zip(sorted(words.packages), packages):
        if not package.files:
            sys.exit(f"{path} holds no files")
    document = make_document(words.name, words.version, packages)
    words.output.write_text(json.dumps(document, indent=1, ensure_ascii=False) + "\n")
    print(f"{len(document['files'])} files of {len(packages)} packages")


main()
