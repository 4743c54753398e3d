#!/usr/bin/env python3
"""check_layouts.py on what a compiler wrote, cut short."""

import unittest

import check_layouts

DUMP = """\
Vtable for std::exception
std::exception::_ZTVSt9exception: 5 entries
16    (int (*)(...))std::exception::~exception

Class std::exception
   size=8 align=8
Vtable for quorvale::Clock
quorvale::Clock::_ZTVN8quorvale5ClockE: 5 entries
0     (int (*)(...))0
8     (int (*)(...))(& _ZTIN8quorvale5ClockE)
16    (int (*)(...))quorvale::Clock::~Clock
24    (int (*)(...))quorvale::Clock::~Clock
32    (int (*)(...))quorvale::Clock::Now

Class quorvale::Clock
   size=8 align=8
   base size=8 base align=8
quorvale::Clock (0x0x7f221f7f9000) 0 nearly-empty
    vptr=((& quorvale::Clock::_ZTVN8quorvale5ClockE) + 16)

Class quorvale::Font
   size=48 align=8
   base size=45 base align=8
"""

LISTED = {
    "quorvale::Clock: 8 bytes, aligned to 8",
    "quorvale::Clock: virtual function 0 is quorvale::Clock::~Clock",
    "quorvale::Clock: virtual function 1 is quorvale::Clock::~Clock",
    "quorvale::Clock: virtual function 2 is quorvale::Clock::Now",
    "quorvale::Font: 48 bytes, aligned to 8",
}


class CheckLayouts(unittest.TestCase):
    def test_our_classes_are_listed_and_nobody_elses(self):
        self.assertEqual(check_layouts.layouts(DUMP), LISTED)

    def test_a_member_more_is_seen(self):
        self.assertNotEqual(check_layouts.layouts(DUMP.replace("size=48", "size=56")), LISTED)

    def test_two_virtual_functions_that_change_places_are_seen(self):
        destructor = "24    (int (*)(...))quorvale::Clock::~Clock\n"
        other = "32    (int (*)(...))quorvale::Clock::Now\n"
        turned = DUMP.replace(destructor + other, other + destructor)
        self.assertNotEqual(check_layouts.layouts(turned), LISTED)


if __name__ == "__main__":
    unittest.main()
