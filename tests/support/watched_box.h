#pragma once

#include <cstdint>
#include <deque>
#include <exception>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "headless/headless_box.h"
#include "support/chance.h"
#include "support/expected_folds.h"
#include "support/known_text.h"

namespace quorvale {

/// A control under test and beside it all that follows from what was done to it. Every action goes
/// through here; after each one the two are compared.
class WatchedBox {
public:
    /// `told`: every action is printed before it is done, and afterwards where the control stands.
    WatchedBox(HeadlessSetup setup, bool told);

    /// What a host does inside an event, in a word; "" when it does nothing.
    std::function<std::string()> InsideEvents;

    HeadlessBox& Box() { return box_; }
    QuorvaleBox* operator->() { return &box_.Box(); }
    Surface& Elements() { return box_.Elements(); }

    const KnownText& Text() const { return text_; }
    ExpectedFolds& Folds() { return folds_; }
    /// The lines and the place behind the last one; 0 before any document.
    std::int32_t Entries() const { return folds_.Entries(); }
    int Suspended() const { return suspended_; }

    /// What the next action changes besides what is seen: said before it is done.
    void TextIsNow(std::u16string text);
    void LineColourIsNow(std::int32_t line, Colour colour);
    void SuspendedIsNow(int count);
    /// The caret goes to a line that is then in view.
    void CaretGoesTo(std::int32_t line);
    void CollapseAllComes();
    void GlyphClickComes(int slot);
    /// The mouse points at a row; `extends`: up to there the selection is extended.
    void RowPointedAt(bool extends);
    /// Which folds open now depends on more than is known here.
    void FoldsAreUnknown() { foldsKnown_ = false; }
    /// Rows keep the colours they have until the next event that repaints them.
    void ColoursStayBehind() { coloursAreBehind_ = true; }
    /// The caret's row was stored without a move: the marker stays where it is, colours too.
    void MarkerStaysBehind();

    /// Whether a caret move extends the selection, and so may open folds.
    bool Extends();

    /// Something that a user does: no failure ever comes out of it.
    template <class Action, class... Arguments>
    void User(const std::string& name, Action action, Arguments... arguments) {
        Do(false, Describe(name, arguments...), [&] { action(arguments...); });
    }

    /// A member that a host calls. It may fail where a member is told to.
    template <class Action, class... Arguments>
    void Host(const std::string& name, Action action, Arguments... arguments) {
        Do(MembersMayFail(), Describe(name, arguments...), [&] { action(arguments...); });
    }
    template <class Action, class... Arguments>
    void HostThatMayFail(const std::string& name, Action action, Arguments... arguments) {
        Do(true, Describe(name, arguments...), [&] { action(arguments...); });
    }

    /// Everything that must hold while the control is at rest.
    void Check(Chance& chance);

    /// The actions done last, the latest at the end.
    const std::deque<std::string>& LastActions() const { return lastActions_; }

private:
    template <class... Arguments>
    static std::string Describe(const std::string& name, const Arguments&... arguments) {
        std::string text = name;
        ((text += ' ' + std::to_string(arguments)), ...);
        return text;
    }

    void HearOf(const std::string& event);
    std::string Standing();
    void Do(bool mayFail, std::string description, const std::function<void()>& action);
    bool MembersMayFail() const;

    void CheckStarts();
    void CheckFolds();
    void CheckCaret();
    void CheckOneLine(std::int32_t line);
    void CheckView();
    void CheckRows(std::int32_t rowsThatFit);
    void CheckMarker(std::int32_t rowsThatFit);
    void CheckColours(std::int32_t rowsThatFit);
    bool IsSelected(std::int32_t line);
    std::int32_t RowsThatFit();
    const std::u16string& TagOf(std::int32_t line) const {
        return tags_[static_cast<std::size_t>(line)];
    }

    HeadlessBox box_;
    bool told_;
    std::deque<std::string> lastActions_;

    KnownText text_;
    ExpectedFolds folds_;
    bool foldsKnown_ = true;
    int suspended_ = 0;
    bool coloursAreBehind_ = false;
    bool markerIsBehind_ = false;
    std::uint32_t movesBefore_ = 0;
    std::map<std::int32_t, Colour> colours_;
    Colour standardColour_ = 0;
    /// The tag of a row that shows the line.
    std::vector<std::u16string> tags_;
};

}  // namespace quorvale
