#!/usr/bin/env python3
"""check_abi.py on made-up libraries."""

import unittest

import check_abi

NM = """\
00000000000a1b20 T quorvale::QuorvaleBox::TopLine(int)
00000000000a1b30 T quorvale::QuorvaleBox::QuorvaleBox()
00000000000a1b40 T quorvale::QuorvaleBox::QuorvaleBox()
00000000000f3d28 D vtable for quorvale::PosixFiles
00000000000c2100 V vtable for quorvale::Container
00000000000a1b50 W std::vector<quorvale::Font>::push_back(quorvale::Font const&)
00000000000a1b60 W quorvale::Element::Tag() const
0000000000100010 B __bss_start
00000000000a1b70 T non-virtual thunk to quorvale::ControlWidget::~ControlWidget()
"""


class CheckAbi(unittest.TestCase):
    def test_what_is_strong_and_ours_is_listed_once(self):
        self.assertEqual(check_abi.exported(NM), {
            "quorvale::QuorvaleBox::TopLine(int)",
            "quorvale::QuorvaleBox::QuorvaleBox()",
            "non-virtual thunk to quorvale::ControlWidget::~ControlWidget()",
        })

    def test_the_tables_of_a_class_count_neither_strong_nor_weak(self):
        tables = "\n".join(f"00000000000f3d28 {kind} {table} for quorvale::PosixFiles"
                           for kind in "DVR" for table in ("vtable", "VTT", "typeinfo", "typeinfo name"))
        self.assertEqual(check_abi.exported(tables), set())

    def test_what_went_and_what_came_is_said(self):
        self.assertEqual(check_abi.compare({"a", "b"}, {"b", "c"}), ["- a", "+ c"])

    def test_the_same_is_no_finding(self):
        self.assertEqual(check_abi.compare({"a"}, {"a"}), [])


if __name__ == "__main__":
    unittest.main()
