#pragma once

#include <QRegularExpression>
#include <QString>
#include <vector>

namespace quorvale {

/// Which file names are meant: patterns with * and ? between semicolons or commas, "*.log;*.txt".
/// One that fits is enough, and case does not matter. Without any pattern every name is meant.
class NameFilter {
public:
    explicit NameFilter(const QString& patterns);

    /// False for a pattern that makes no sense, a "[" without its "]".
    bool isValid() const { return valid_; }

    /// `name` is a file's name without its folder.
    bool admits(const QString& name) const;

private:
    std::vector<QRegularExpression> patterns_;
    bool valid_ = true;
};

/// What to compare instead of names, so that they come in the order people expect: case does not
/// matter, and numbers in them count as numbers, "log2" before "log10".
QString orderOf(const QString& name);

}  // namespace quorvale
