#include "viewer/open_check.h"

#include <QCoreApplication>
#include <array>
#include <fstream>
#include <string_view>
#include <system_error>

#include "document/largest_file.h"
#include "viewer/file_names.h"

namespace quorvale {

namespace {

QString tr(const char* text) { return QCoreApplication::translate("OpenCheck", text); }

QString reasonOf(const QString& fileName) {
    std::error_code failure;
    const auto status = std::filesystem::status(pathOf(fileName), failure);
    // A dangling link is there, but what it names is not.
    if (!exists(status)) return tr("There is no such file.");
    if (is_directory(status)) return tr("It is a directory.");
    if (!is_regular_file(status)) return tr("It is a device or a pipe, not a file.");
    if (!mayRead(fileName)) return tr("You do not have permission to read it.");
    if (sizeOf(fileName) > qint64{mostFileBytes}) return tr("It is larger than 2 GiB.");
    return {};
}

}  // namespace

QString whyNotOpenable(const QString& fileName) {
    const QString reason = reasonOf(fileName);
    if (reason.isEmpty()) return {};
    return tr("%1 cannot be opened. %2").arg(fileName, reason);
}

bool beginsAsUtf16(const QString& fileName) {
    std::array<char, 2> bytes{};
    std::ifstream file(pathOf(fileName), std::ios::binary);
    if (!file.read(bytes.data(), bytes.size())) return false;
    const std::string_view mark(bytes.data(), bytes.size());
    return mark == "\xFF\xFE" || mark == "\xFE\xFF";
}

}  // namespace quorvale
