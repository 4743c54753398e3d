#include "corrections/edit_script.h"

#include <iterator>
#include <map>

#include "base/numbers_in_text.h"

namespace quorvale {

namespace {

/// Builds a script. Runs of lines never overlap and stand in ascending order, so the one that holds
/// a line is found by its first line.
class ScriptBuilder {
public:
    ScriptBuilder(std::int32_t first, std::int32_t last) { AddRun(script_.end(), first, last); }

    void Apply(const Update& update) {
        const std::int32_t start = update.Range.Start;
        auto run = runs_.upper_bound(start);
        if (run == runs_.begin()) return;
        --run;
        const ScriptStep hit = *run->second;
        if (start > hit.To) return;
        const auto behind = script_.erase(run->second);
        runs_.erase(run);
        if (hit.From != start) AddRun(behind, hit.From, start - 1);
        script_.insert(behind, ScriptStep{&update, 0, 0});
        if (update.Range.End() - 1 != hit.To) AddRun(behind, update.Range.End(), hit.To);
    }

    EditScript Take() { return std::move(script_); }

private:
    void AddRun(EditScript::iterator before, std::int32_t from, std::int32_t to) {
        const auto run = script_.insert(before, ScriptStep{nullptr, from, to});
        // A run that copies nothing can be hit by nothing.
        if (from <= to) runs_[from] = run;
    }

    EditScript script_;
    std::map<std::int32_t, EditScript::iterator> runs_;
};

}  // namespace

EditScript MakeEditScript(std::int32_t first, std::int32_t count,
                          const std::vector<Update>& updates) {
    const std::int32_t end = first + count;
    ScriptBuilder script(first, end - 1);
    for (const Update& update : updates) {
        if (update.Range.Start >= first && update.Range.Start < end) script.Apply(update);
    }
    return script.Take();
}

std::u16string ScriptText(const EditScript& script) {
    std::u16string text;
    for (const ScriptStep& step : script) {
        if (step.Insert != nullptr) {
            text += u'm' + DecimalText(static_cast<std::int64_t>(step.Insert->Number));
        } else {
            text += u'o' + DecimalText(step.From) + u':' + DecimalText(step.To);
        }
        text += u'\r';
    }
    return text;
}

}  // namespace quorvale
