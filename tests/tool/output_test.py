"""--output: whole or not at all."""
import os
import resource
import stat
import unittest

from support import URN_MULTIPLEX, ToolTest, dictionary, element, multiplex


class Output(ToolTest):
    def setUp(self):
        super().setUp()
        self.write("d.xsd", dictionary(*(element(n, f"E{n}") for n in range(1, 40))))
        self.new = self.run_tool("dump", "--dictionary", "d.xsd")[1]
        (self.folder / "out").mkdir()
        self.path = self.folder / "out" / "o.txt"

    def dump_to(self, path, *more, **options):
        return self.run_tool("dump", "--dictionary", "d.xsd", *more, "--output", path, **options)

    def files(self):
        return sorted(os.listdir(self.folder / "out"))

    def mode(self, path):
        return stat.S_IMODE(os.stat(path).st_mode)

    def test_new_file(self):
        self.assertEqual(self.dump_to(self.path, preexec_fn=lambda: os.umask(0o027)), (0, b"", b""))
        self.assertEqual((self.files(), self.path.read_bytes(), self.mode(self.path)), (["o.txt"], self.new, 0o640))

    def test_existing_file_is_replaced_at_once_and_keeps_its_permissions(self):
        self.path.write_bytes(b"old")
        self.path.chmod(0o604)
        with open(self.path, "rb") as reader:  # still sees the file that it opened
            self.assertEqual(self.dump_to(self.path)[0], 0)
            self.assertEqual(reader.read(), b"old")
        self.assertEqual((self.files(), self.path.read_bytes(), self.mode(self.path)), (["o.txt"], self.new, 0o604))

    def test_symbolic_links_stay(self):
        for existing in (True, False):
            with self.subTest(existing=existing):
                target = self.folder / "out" / f"target-{existing}"
                if existing:
                    target.write_bytes(b"old")
                second = self.folder / "out" / "second"
                second.symlink_to(target.name)
                first = self.folder / "first"
                first.symlink_to(second)
                self.assertEqual(self.dump_to(first)[0], 0)
                self.assertEqual((first.is_symlink(), second.is_symlink()), (True, True))
                self.assertEqual(target.read_bytes(), self.new)
                self.assertFalse(target.is_symlink())
                first.unlink()
                second.unlink()

    def test_the_longest_name_and_a_name_in_the_current_folder(self):
        for name in ("n" * 255, "here"):
            self.assertEqual(self.dump_to(name)[0], 0)
            self.assertEqual((self.folder / name).read_bytes(), self.new)

    def test_a_failed_run_leaves_the_old_file(self):
        self.path.write_bytes(b"old")
        self.assertEqual(self.dump_to(self.path, "--scheme", "absent.xsd")[0], 1)
        self.assertEqual((self.files(), self.path.read_bytes()), (["o.txt"], b"old"))

    def test_with_keep_going_a_failed_run_writes_what_it_has(self):
        status, output, errors = self.dump_to(self.path, "--scheme", "absent.xsd", "--keep-going")
        self.assertEqual((status, output), (1, b""))
        self.assertIn(b"absent.xsd", errors)
        self.assertIn(b"IOError", self.path.read_bytes())

    def test_output_that_cannot_be_written(self):
        loop = self.folder / "loop"
        loop.symlink_to("loop")
        for path, reason in ((self.folder / "absent" / "o.txt", "No such file or directory"),
                             (self.folder / "out", "Is a directory"),
                             (loop, "Too many levels of symbolic links")):
            with self.subTest(path):
                status, output, errors = self.dump_to(path)
                self.assertEqual((status, output), (1, b""))
                self.assertEqual(errors.decode(), f"mxf-metadict: {path}: {reason}\n")
        self.assertEqual(self.files(), [])
        self.assertEqual(sorted(os.listdir(self.folder)), ["d.xsd", "loop", "out"])

    def test_a_disk_that_fills_up_leaves_the_old_file_and_nothing_beside_it(self):
        self.path.write_bytes(b"old")
        limit = lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (1024, 1024))
        self.assertGreater(len(self.new), 1024)
        status, _, errors = self.dump_to(self.path, preexec_fn=limit)
        self.assertEqual((status, errors.decode()), (1, f"mxf-metadict: {self.path}: File too large\n"))
        self.assertEqual((self.files(), self.path.read_bytes()), (["o.txt"], b"old"))

    @unittest.skipIf(os.geteuid() == 0, "the superuser may write to every file")
    def test_a_protected_file_stays(self):
        self.path.write_bytes(b"old")
        self.path.chmod(0o444)
        self.assertEqual(self.dump_to(self.path)[0], 1)
        self.assertEqual((self.files(), self.path.read_bytes()), (["o.txt"], b"old"))

    def test_what_is_no_file_is_written_to_directly(self):
        # A pipe of our own: a tool that got this wrong, run by the superuser, would replace a device of the system.
        fifo = self.folder / "fifo"
        os.mkfifo(fifo)
        with open(os.open(fifo, os.O_RDWR), "rb", buffering=0) as reader:
            self.assertEqual(self.dump_to(fifo)[0], 0)
            self.assertTrue(stat.S_ISFIFO(os.stat(fifo).st_mode))
            self.assertEqual(reader.read(len(self.new)), self.new)


    def test_what_is_read_is_not_replaced(self):
        self.write("d.xsd", dictionary(element(1)))
        os.link(self.folder / "d.xsd", self.folder / "link.xsd")
        self.write("m.xsd", multiplex(URN_MULTIPLEX))
        before = (self.folder / "d.xsd").read_text()
        for arguments in (["dump", "--dictionary", "d.xsd"], ["check", "--dictionary", "d.xsd"], ["diff", "d.xsd", "m.xsd"],
                          ["dump", "--multiplex", "d.xsd", "--dictionary", "m.xsd"], ["report", "--scheme", "d.xsd"]):
            with self.subTest(arguments):
                status, output, errors = self.run_tool(*arguments, "--output", "./link.xsd")
                self.assertEqual((status, output), (2, b""))
                self.assertEqual(errors, b"mxf-metadict: --output would replace d.xsd, which is to be read\n")
                self.assertEqual((self.folder / "d.xsd").read_text(), before)

    def test_no_schema_is_replaced_as_it_may_be_imported(self):
        text = '<?xml version="1.0"?><!-- types --><xsd:schema xmlns:xsd="http://www.w3.org/2001/XMLSchema"'
        for content in (text.encode(), text.encode("utf-16"), b"\xef\xbb\xbf \n" + text.encode()):
            self.path.write_bytes(content)
            status, output, errors = self.dump_to(self.path)
            self.assertEqual((status, output, self.path.read_bytes()), (2, b"", content))
            self.assertIn(b"which is an XML Schema, as imports are", errors)
        for content in (b"<!DOCTYPE html>" + text.encode(), b"{}" + text.encode(), b"<x/>"):
            self.path.write_bytes(content)
            self.assertEqual((self.dump_to(self.path)[0], self.path.read_bytes()), (0, self.new))


if __name__ == "__main__":
    unittest.main()
