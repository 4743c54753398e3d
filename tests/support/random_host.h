#pragma once

#include <cstdint>
#include <string>

#include "support/chance.h"
#include "support/watched_box.h"

namespace quorvale {

/// What kind of documents a host shows.
struct RandomDocuments {
    /// Lines of up to this many characters now and then.
    int LongestLine = 18000;
    /// The least number of lines; for documents whose bar steps over several lines.
    int Lines = 0;
    /// Ranges in one another that each document begins with: beyond 64 no fill can draw them all.
    std::int32_t Nested = 0;
    /// Some ranges reach past the document, which folding them all answers with an error.
    bool PastTheEnd = false;
};

/// A host that calls any member with any arguments.
class RandomHost {
public:
    RandomHost(WatchedBox& box, Chance& chance, RandomDocuments documents)
        : box_(box), chance_(chance), documents_(documents) {}

    void Act();
    /// What it does inside an event, mostly nothing: told in a word.
    std::string ActInside();
    void ShowAnotherText();

private:
    void MoveAbout();
    void JumpToOffset();
    void Fold();
    void Register();
    void Register(std::int32_t from, std::int32_t to);
    void Decorate();
    void Select();
    void Read();
    void Suspend();
    void SuspendBy(bool show);
    void ChangeLooks();
    void ChangeFont();
    void UseBoxes();

    std::int32_t AnyLine();
    std::int32_t AnyColumn();
    const char* ActAnyhow();

    WatchedBox& box_;
    Chance& chance_;
    RandomDocuments documents_;
    int inside_ = 0;
};

}  // namespace quorvale
