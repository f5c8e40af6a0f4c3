#!/usr/bin/env python3
"""Quillmark installed as a user gets it. --tree: the build installed into a temporary folder,
checked with the desktop's own checkers, its manual pages against --help, and both programs run
from a folder of their own. --package: the Debian package's contents, dependencies and lintian.
Exit 0 when every check holds, 1 with the failures listed."""

import argparse, os, re, shutil, subprocess, sys, tempfile, time  # noqa: E401

failures = []


def check(condition, message):
    if not condition:
        failures.append(message)
    return condition


def run(args, **kwargs):
    return subprocess.run(args, capture_output=True, text=True, **kwargs)


def usage_lines(help_text):
    """The synopses of a --help text: lines indented by exactly two spaces, up to the first
    run of two spaces that starts their description."""
    return [re.split(r"\s{2,}", line.strip())[0] for line in help_text.splitlines() if re.match(r"^  \S", line)]


def rendered_man_page(path):
    text = run(["man", "-l", path], env=dict(os.environ, MANWIDTH="250", LC_ALL="C", MANPAGER="cat", PAGER="cat")).stdout
    text = re.sub(".\b", "", text)  # overstrikes for bold and underline
    return [re.sub(r"\s+", " ", line).strip() for line in text.splitlines()]


def listed(synopsis, lines):
    """Whether a manual page's entry starts with `synopsis`: alone on its line, or followed by
    its description where the synopsis fits in the entry's indent."""
    synopsis = re.sub(r"\s+", " ", synopsis)
    return any(line == synopsis or line.startswith(synopsis + " ") for line in lines)


def check_contents(what, contents, source):
    """Every file of the package, no more: tests/data/package-contents.txt lists them."""
    with open(os.path.join(source, "tests/data/package-contents.txt")) as f:
        expected = sorted(line.strip() for line in f if line.strip())
    check(contents == expected, f"{what} differs from tests/data/package-contents.txt:\n  missing: "
          f"{sorted(set(expected) - set(contents))}\n  unexpected: {sorted(set(contents) - set(expected))}")


def check_tree(build, source, tmp):
    root = os.path.join(tmp, "root")
    result = run(["cmake", "--install", build, "--prefix", "/usr"], env=dict(os.environ, DESTDIR=root))
    if not check(result.returncode == 0, "cmake --install failed:\n" + result.stderr):
        return
    usr = os.path.join(root, "usr")
    share = os.path.join(usr, "share")
    installed = sorted("/" + os.path.relpath(os.path.join(folder, name), root)
                       for folder, _, names in os.walk(root) for name in names)
    check_contents("the installed tree", installed, source)

    result = run(["desktop-file-validate", os.path.join(share, "applications/org.quillmark.Quillmark.desktop")])
    check(result.returncode == 0 and not result.stdout.strip(), "desktop-file-validate:\n" + result.stdout + result.stderr)
    result = run(["appstreamcli", "validate", "--no-net", os.path.join(share, "metainfo/org.quillmark.Quillmark.metainfo.xml")])
    check(result.returncode == 0, "appstreamcli validate:\n" + result.stdout + result.stderr)
    # update-mime-database refuses a malformed package file; it builds into a copy.
    mime = os.path.join(tmp, "mime")
    shutil.copytree(os.path.join(share, "mime"), mime)
    result = run(["update-mime-database", "-V", mime])
    check(result.returncode == 0 and "quillmark.xml" not in result.stderr.replace(mime, ""),
          "update-mime-database:\n" + result.stderr)

    for program in ("quillmark", "quillmark-cli"):
        page = os.path.join(share, f"man/man1/{program}.1.gz")
        result = run(["man", "--warnings", "-E", "UTF-8", "-l", page], env=dict(os.environ, MANWIDTH="80", LC_ALL="C.UTF-8"))
        check(result.returncode == 0 and not result.stderr.strip(), f"man --warnings {program}:\n{result.stderr}")
        help_text = run([os.path.join(usr, "bin", program), "--help"]).stdout
        lines = rendered_man_page(page)
        missing = [u for u in usage_lines(help_text) if not listed(u, lines)]
        exit_codes = re.search(r"^Exit codes: (.*)$", help_text, re.M)
        missing += [f"exit code {code}" for code in re.findall(r"(\d+) ", exit_codes.group(1) if exit_codes else "")
                    if not listed(code, lines)]
        check(help_text and not missing,
              f"{program}.1 lacks what {program} --help lists (add each as a .TP entry):\n  " + "\n  ".join(missing))

    # Both programs from a folder of their own, with nothing of the build or the system's
    # data folders to fall back on.
    elsewhere = os.path.join(tmp, "elsewhere")
    os.makedirs(elsewhere, mode=0o700)
    puzzle = os.path.join(elsewhere, "sunday-stroll.xwd")
    shutil.copy(os.path.join(source, "examples/sunday-stroll.xwd"), puzzle)
    env = dict(os.environ, HOME=elsewhere, XDG_CONFIG_HOME=os.path.join(elsewhere, "config"),
               XDG_DATA_HOME=os.path.join(elsewhere, "data"), XDG_DATA_DIRS=os.path.join(elsewhere, "none"),
               XDG_RUNTIME_DIR=elsewhere, QT_QPA_PLATFORM="offscreen")
    cli = os.path.join(usr, "bin/quillmark-cli")
    installed = run([cli, "info", "sunday-stroll.xwd"], cwd=elsewhere, env=env)
    built = run([os.path.join(build, "quillmark-cli"), "info", puzzle], env=env)
    check(installed.returncode == 0 and installed.stdout == built.stdout,
          f"installed quillmark-cli info differs from the build's:\n{installed.stdout}{installed.stderr}---\n{built.stdout}")
    result = run([cli, "export-web", "sunday-stroll.xwd", "page.html"], cwd=elsewhere, env=env)
    page = os.path.join(elsewhere, "page.html")
    check(result.returncode == 0 and os.path.isfile(page) and "<script" in open(page).read(),
          "installed quillmark-cli export-web:\n" + result.stderr)

    program = subprocess.Popen([os.path.join(usr, "bin/quillmark"), "sunday-stroll.xwd"], cwd=elsewhere, env=env,
                               stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
    # An opened puzzle becomes the current one in the user's settings.
    settings = os.path.join(elsewhere, "config/Quillmark32/Quillmark6Demo.conf")
    for _ in range(100):
        opened = os.path.isfile(settings) and f"CurrentPuzzle={puzzle}" in open(settings).read()
        if opened or program.poll() is not None:
            break
        time.sleep(0.1)
    still_running = program.poll() is None
    program.terminate()
    _, stderr = program.communicate(timeout=10)
    check(opened and still_running, f"installed quillmark did not open {puzzle}:\n{stderr}")
    check("help collection" not in stderr, "installed quillmark found no help:\n" + stderr)


def check_package(build, source, tmp):
    result = run(["cpack", "-G", "DEB", "-B", tmp, "--config", os.path.join(build, "CPackConfig.cmake")])
    debs = [f for f in os.listdir(tmp) if f.endswith(".deb")]
    if not check(result.returncode == 0 and len(debs) == 1, "cpack failed:\n" + result.stdout + result.stderr):
        return
    deb = os.path.join(tmp, debs[0])
    listing = run(["dpkg-deb", "--contents", deb]).stdout
    contents = sorted(line.split()[5].lstrip(".") for line in listing.splitlines() if not line.startswith("d"))
    check_contents("the package", contents, source)
    depends = run(["dpkg-deb", "--field", deb, "Depends"]).stdout
    for package in ("libqt6widgets6", "libqt6help6", "qt6-qpa-plugins", "libqt6sql6-sqlite", "fonts-liberation2"):
        check(re.search(rf"(^|, ){re.escape(package)}\b", depends), f"Depends lacks {package}: {depends}")
    result = run(["lintian", "--no-tag-display-limit", deb])
    print("lintian:\n" + (result.stdout or "(nothing)\n"))
    check("\nE:" not in "\n" + result.stdout, "lintian reports errors:\n" + result.stdout)


def main():
    parser = argparse.ArgumentParser()
    what = parser.add_mutually_exclusive_group(required=True)
    what.add_argument("--tree", action="store_true")
    what.add_argument("--package", action="store_true")
    parser.add_argument("--build", required=True)
    parser.add_argument("--source", required=True)
    args = parser.parse_args()
    with tempfile.TemporaryDirectory(prefix="quillmark-install-") as tmp:
        (check_tree if args.tree else check_package)(args.build, args.source, tmp)
    for failure in failures:
        print("FAIL:", failure)
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
