// A host that knows members by their numbers only, as one in another language does.
#include <cstdio>
#include <initializer_list>
#include <vector>

#include "control/dispatch.h"
#include "control/member_table.h"
#include "headless/headless_box.h"

using namespace quorvale;

int main() {
    HeadlessBox window;
    window.Files().Put(u"/notes.txt", "one\ntwo\nthree");
    const auto call = [&](std::int32_t id, unsigned kind, std::vector<Variant> arguments) {
        return Invoke(window.Box(), id, kind, arguments);
    };

    call(GetIdOfName(u"LoadFile"), member_kind::Method, {std::u16string(u"/notes.txt")});
    const std::int32_t lineText = GetIdOfName(u"LineText");
    const Variant count = call(member_id::LineCount, member_kind::Get, {});
    for (std::int32_t line = 1; line <= ToLong(count); ++line) {
        const std::u16string text = ToString(call(lineText, member_kind::Get, {line}));
        std::printf("%d: %zu characters\n", line, text.size());
    }
    call(member_id::row, member_kind::Let, {std::int32_t{2}});
    return ToLong(call(member_id::row, member_kind::Get, {})) == 2 ? 0 : 1;
}
