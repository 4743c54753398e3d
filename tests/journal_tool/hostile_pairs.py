"""Pairs of a file and a journal that nobody would wish for, made from a seed."""

import os
import random
from pathlib import Path

WORDS = ["tide", "gauge", "  ", "\t", "0.75 m", "x" * 90, "ERROR", "ok", "", "a;b", "-", "C:\\logs"]
FAR = ["日本語", "한국어", "é", "\U0001F30A", "ß\u0301"]


def lines(chance, count, words=tuple(WORDS)):
    return [" ".join(chance.choice(words) for _ in range(chance.randrange(5)))
            for _ in range(count)]


def joined(chance, texts, ends, encoding="utf-8"):
    text = "".join(line + chance.choice(ends) for line in texts)
    if texts and chance.random() < 0.4:
        text = text.rstrip("\r\n")
    return text.encode(encoding, "replace")


def make_document(chance):
    """The bytes of a file."""
    count = chance.choice([1, 2, 3, 7, 30, 200])
    kind = chance.randrange(11)
    if kind == 0:
        return b""
    if kind == 1:
        return bytes(chance.randrange(256) for _ in range(chance.randrange(1, 3000)))
    if kind == 2:
        return b"\n" * count + b"\r" * chance.randrange(3)
    if kind == 3:
        return joined(chance, lines(chance, count, (*WORDS, *FAR)), ["\n"])
    if kind == 4:
        return joined(chance, lines(chance, count, (*WORDS, "é", "ß")), ["\r\n"], "latin-1")
    if kind == 5:
        return b"\xef\xbb\xbf" + joined(chance, lines(chance, count), ["\r\n"])
    if kind == 6:
        return b"y" * 300000 + b"\n" + joined(chance, lines(chance, count), ["\n"])
    if kind == 7:
        return joined(chance, lines(chance, count), ["\n", "\0\n", "\x1b[2J\n", "\f\r\n"])
    return joined(chance, lines(chance, count), chance.choice([["\n"], ["\r\n"], ["\n", "\r\n"]]))


def escaped(text):
    for plain, written in (("&", "&amp;"), ("<", "&lt;"), (">", "&gt;")):
        text = text.replace(plain, written)
    return text


def update(start, count, text, more=""):
    return f'<update start="{start}" loc="{count}"{more}>{escaped(text)}</update>'


def text_of_correction(chance, words=tuple(WORDS)):
    return "".join(line + "\n" for line in lines(chance, chance.choice([0, 1, 1, 2, 5]), words))


def fitting_updates(chance, document, words=tuple(WORDS)):
    """Corrections that do not meet one another."""
    last, at, made = document.count(b"\n") + 1, 1, []
    while at <= last and len(made) < 40:
        at += chance.randrange(6)
        count = chance.choice([0, 1, 1, 1, 2, 4])
        if at + count - 1 > last or at > last + 1:
            break
        made.append(update(at, count, text_of_correction(chance, words)))
        at += count + 1
    chance.shuffle(made)
    return made


def root(updates):
    return "<corrections>" + "".join(updates) + "</corrections>"


NUMBERS = ["", "abc", "-1", "0", "2147483647", "2147483648", "99999999999999999999", "1e9", "&amp;H7F",
           "(3)", " 2 ", "1,000", "NaN", "2.5", "-2147483648"]


def odd_updates(chance, document):
    last = document.count(b"\n") + 1
    made = fitting_updates(chance, document)
    for _ in range(chance.randrange(1, 6)):
        text = text_of_correction(chance, (*WORDS, *FAR))
        made.append(chance.choice([
            lambda: update(chance.randrange(-2, last + 4), chance.randrange(6), text),
            lambda: update(1, 2147483646, text),
            lambda: update(last + chance.randrange(1000), 1, text),
            lambda: update(chance.choice(NUMBERS), chance.choice(NUMBERS), text),
            lambda: update(1, 1, "not ended"),
            lambda: update(1, 1, r"\u001B]0;owned\u0007\uD800\u00zz\ " + "\n", ' escaped="1"'),
            lambda: '<update start="1" loc="1"><![CDATA[<b>&\n]]></update>',
            lambda: '<update start="1" loc="1"><b/>text\n</update>',
            lambda: f"<x>{update(2, 1, text)}<y>{update(3, 0, text)}</y></x>",
            lambda: '<update/><update start="1"/><update loc="1"/>',
            lambda: "<!-- \x1b[31m --><?go on?>",
        ])())
    chance.shuffle(made)
    return made


def mutated(chance, journal):
    journal = bytearray(journal)
    for _ in range(chance.randrange(1, 8)):
        at = chance.randrange(len(journal) + 1)
        kind = chance.randrange(4)
        if kind == 0:
            journal[at:at] = bytes([chance.randrange(256)])
        elif kind == 1:
            del journal[at:at + chance.randrange(1, 20)]
        elif kind == 2:
            journal[at:at + 1] = chance.choice([b"<", b"&", b'"', b"]]>", b"\0", b"\xff", b"</"])
        else:
            piece = bytes(journal[at:at + 30])
            journal[at:at] = piece * chance.randrange(1, 30)
    return bytes(journal)


def strange_journal(chance):
    return chance.choice([
        lambda: b"",
        lambda: b"no xml at all \x1b[2J",
        lambda: bytes(chance.randrange(256) for _ in range(500)),
        lambda: b"<notes/>",
        lambda: b"<corrections/>",
        lambda: b"<corrections><!-- empty --></corrections>",
        lambda: b"<!DOCTYPE corrections [<!ENTITY a 'aaaa'>]><corrections>&a;</corrections>",
        lambda: b"<!DOCTYPE c SYSTEM 'file:///etc/passwd'><corrections/>",
        lambda: b"<a>" * 100000,
        lambda: b"<a>" * 300 + b"</a>" * 300,
        lambda: b"<corrections>" + b"<a " + b'x="1" ' * 20000 + b"/></corrections>",
        lambda: root([update(i, 2, "n\n") for i in range(20000)]).encode(),
        lambda: root([update(1, 2147483646, "n\n")] * 5000).encode(),
        lambda: root([update(1, 1, "n" * 1000000 + "\n")]).encode(),
        lambda: b'<?xml version="1.0" encoding="ebcdic-cp-us"?><corrections/>',
        lambda: root([update(1, 1, "wide\n")]).encode("utf-16"),
        lambda: b"\xfe\xff\xd8\x00" * 100,
        lambda: b"<x><corrections><?first?></corrections><corrections>" + update(1, 0, "n\n").encode()
        + b"</corrections></x>",
    ])()


def make_journal(chance, document):
    kind = chance.randrange(10)
    if kind < 3:
        return root(fitting_updates(chance, document)).encode()
    if kind < 4:
        return root(fitting_updates(chance, document, (*WORDS, *FAR))).encode()
    if kind < 6:
        return root(odd_updates(chance, document)).encode()
    if kind < 8:
        made = chance.choice([fitting_updates, odd_updates])(chance, document)
        return mutated(chance, root(made).encode())
    return strange_journal(chance)


NAMES = [b"plain.log", b"with space.log", b"-n", b"--help", b"\xff\xfe.log", b"a\nb\x1b[31m.log",
         b"'quoted\".log", "潮位.log".encode(), b"x" * 240, b"a.log!.xml", b"%1$s%n.log"]

PLACES = ["plain"] * 12 + [
    "no document", "document folder", "document pipe", "document link", "dangling link",
    "document unreadable", "document read-only", "hard link", "no journal", "journal folder",
    "journal pipe", "journal link", "journal unreadable", "journal read-only", "huge journal",
    "folder read-only", "locked", "interrupted", "interrupted", "interrupted in place",
    "interrupted and edited", "torn record"]


class Pair:
    """One file and one journal in a folder of their own."""

    def __init__(self, number, place):
        chance = random.Random(number)
        self.number = number
        self.kind = PLACES[number % len(PLACES)]
        self.chance = chance
        self.folder = os.path.join(os.fsencode(place), b"%03d" % number)
        self.name = chance.choice(NAMES)
        self.path = os.path.join(self.folder, self.name)
        self.journal = self.path + b"!.xml"
        self.document_bytes = make_document(chance)
        self.journal_bytes = make_journal(chance, self.document_bytes)
        self.line_format = chance.choice(["keep", "keep", "crlf"])
        self.applied = False
        self.call = chance.randrange(20, 150)

    def put(self):
        """Everything that needs no helping program."""
        os.mkdir(self.folder)
        self.put_document()
        self.put_journal()

    def put_document(self):
        path, kind = self.path, self.kind
        if kind in ("document folder", "document pipe"):
            return os.mkdir(path) if kind == "document folder" else os.mkfifo(path)
        if kind == "dangling link":
            return os.symlink(b"nowhere", path)
        if kind == "no document":
            return None
        if kind == "document link":
            os.symlink(b"target of a link", path)
            path = os.path.join(self.folder, b"target of a link")
        Path(os.fsdecode(path)).write_bytes(self.document_bytes)
        if kind in ("hard link", "interrupted in place"):
            os.link(path, os.path.join(self.folder, b"other name"))
        if kind == "document unreadable":
            os.chmod(path, 0)
        if kind == "document read-only":
            os.chmod(path, 0o444)
        return None

    def put_journal(self):
        journal, kind = self.journal, self.kind
        if kind == "no journal":
            return
        if kind == "journal folder":
            os.mkdir(journal)
        elif kind == "journal pipe":
            os.mkfifo(journal)
        elif kind == "journal link":
            target = os.path.join(self.folder, b"linked journal")
            Path(os.fsdecode(target)).write_bytes(self.journal_bytes)
            os.symlink(b"linked journal", journal)
        else:
            Path(os.fsdecode(journal)).write_bytes(self.journal_bytes)
        if kind == "journal unreadable":
            os.chmod(journal, 0)
        elif kind == "journal read-only":
            os.chmod(journal, 0o444)
        elif kind == "huge journal":
            os.truncate(journal, (1 << 30) + 1 + self.number)
