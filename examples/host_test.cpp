// A host's own test, on the headless library: no window, no display, no files on the disk.
#include <cstdio>

#include "headless/headless_box.h"
#include "platform/keys.h"

using namespace quorvale;

namespace {

/// What is to be tested: a host that shows where the first error of a log is.
void ShowFirstError(QuorvaleBox& box) {
    for (std::int32_t line = 1; line <= box.LineCount(); ++line) {
        if (box.LineText(line).find(u"ERROR") != std::u16string::npos) return box.MoveTo(line, 1);
    }
}

int failures = 0;

void Expect(bool holds, const char* what) {
    std::printf("%s: %s\n", holds ? "passed" : "FAILED", what);
    failures += holds ? 0 : 1;
}

}  // namespace

int main() {
    HeadlessBox window;
    window.Load("fine\nfine\nERROR here\nfine");
    ShowFirstError(window.Box());
    Expect(window->row() == 3, "the caret stands on the error");
    Expect(window.Log().Count("SelChanged") > 0, "listeners hear of it");

    window.EnterText();
    window.Press(key_code::Down);
    Expect(window->row() == 4, "the user can walk on");
    return failures == 0 ? 0 : 1;
}
