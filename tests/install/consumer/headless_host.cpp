// A host's own test on the headless library: what its user does, what then must be seen.
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

#include "adapters/posix_files.h"
#include "control/dispatch.h"
#include "control/host_extras.h"
#include "control/member_table.h"
#include "headless/headless_box.h"
#include "platform/property_bag.h"

using namespace quorvale;

namespace {

void require(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "headless_host: %s\n", what);
    std::exit(1);
}

/// Counts events by number, as hosts in other languages do.
class Counter final : public EventSink {
public:
    int Events = 0;
    void OnEvent(std::int32_t, std::span<Variant>) override { ++Events; }
};

/// What the control throws arrives here as what it is, out of the library.
ErrorKind kindOfRefusal(QuorvaleBox& box) {
    try {
        Invoke(box, 424242, 1, {});
    } catch (const ControlError& error) {
        return error.Kind();
    }
    return ErrorKind::OutOfMemory;
}

}  // namespace

int main() {
    HeadlessBox box;
    box.Load("one\ntwo\nthree\n");
    require(box->LineCount() >= 3, "three lines are three lines");
    box.EnterText();
    box.Press(40);
    require(box->row() == 2, "the Down key goes to the second line");
    require(box->Extras().RawLineText(2) == u"two", "the second line is read");

    Counter counter;
    box->SetEventSink(&counter);
    box->MoveTo(3, 1);
    require(counter.Events > 0, "events are heard by number");
    box->SetEventSink(nullptr);

    const Variant top = Invoke(box.Box(), GetIdOfName(u"TopLine"), member_kind::Get, {});
    require(ToLong(top) == box->TopLine(), "members are called by number");
    require(kindOfRefusal(box.Box()) == ErrorKind::MemberNotFound, "an error has its kind");

    MemoryBag bag;
    box->WriteProperties(bag);
    const std::shared_ptr<FileSystem> files = std::make_shared<PosixFiles>();
    require(dynamic_cast<PosixFiles*>(files.get()) != nullptr, "types are the same on both sides");
    require(!files->Exists(u"/no/such/file") || !*files->Exists(u"/no/such/file"),
            "the files are real ones");
    std::puts("headless_host: all is well");
    return 0;
}
