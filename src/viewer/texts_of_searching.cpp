#include <array>

#include "viewer/viewer_translator.h"

namespace quorvale {

namespace {

constexpr auto searching = std::to_array<ViewerText>({
    {"Search in files", "複数のファイルから検索", "파일에서 찾기"},
    {"Te&xt:", "文字列(&X):", "텍스트(&X):"},
    {"&Wildcard pattern: * ? # [list]", "ワイルドカード(&W): * ? # [list]",
     "와일드카드(&W): * ? # [list]"},
    {"&Names:", "ファイル名(&N):", "파일 이름(&N):"},
    {"*.log;*.txt", "*.log;*.txt", "*.log;*.txt"},
    {"&Subfolders", "サブフォルダーも(&S)", "하위 폴더 포함(&S)"},
    {"&Hidden files and folders", "隠しファイルと隠しフォルダーも(&H)",
     "숨김 파일과 폴더 포함(&H)"},
    {"&Browse...", "参照(&B)...", "찾아보기(&B)..."},
    {"F&older:", "フォルダー(&O):", "폴더(&O):"},
    {"&Find all", "すべて検索(&F)", "모두 찾기(&F)"},
    {"&Stop", "中止(&S)", "중지(&S)"},
    {"Stopped.", "中止しました。", "중지했습니다."},
    {"Folder to search", "検索するフォルダー", "검색할 폴더"},
    {"A [ among the names has no ].", "名前の中の [ に対応する ] がありません。",
     "이름의 [에 짝이 되는 ]가 없습니다."},
    {"Looking for files: %1 so far", "ファイルを探しています: 現在 %1 個",
     "파일을 찾는 중: 지금까지 %1개"},
    {"There is no such folder.", "そのフォルダーはありません。", "그런 폴더가 없습니다."},
    {"This is not a folder.", "これはフォルダーではありません。", "폴더가 아닙니다."},
    {"You do not have permission to read this folder.",
     "このフォルダーを読み取る権限がありません。", "이 폴더를 읽을 권한이 없습니다."},
    {"You do not have permission to read:\n%1", "読み取る権限がありません:\n%1",
     "읽을 권한이 없습니다:\n%1"},
    {"You do not have permission to read what was found: %1",
     "見つかったものを読み取る権限がありません: %1", "찾은 항목을 읽을 권한이 없습니다: %1"},
    {"and %1 more.", "ほか %1 件。", "그 밖에 %1개."},
    {"No file in this folder has such a name.",
     "このフォルダーにそのような名前のファイルはありません。",
     "이 폴더에 그런 이름의 파일이 없습니다."},
    {"The name of one file holds a line break: it was left out.",
     "1 個のファイルの名前が改行を含むため、除外しました。",
     "파일 1개의 이름에 줄 바꿈이 있어 제외했습니다."},
    {"The names of %1 files hold a line break: they were left out.",
     "%1 個のファイルの名前が改行を含むため、除外しました。",
     "파일 %1개의 이름에 줄 바꿈이 있어 제외했습니다."},
    {"One file is larger than 2 GiB: it was left out.",
     "1 個のファイルは 2 GiB を超えているため、除外しました。",
     "파일 1개가 2GiB보다 커서 제외했습니다."},
    {"%1 files are larger than 2 GiB: they were left out.",
     "%1 個のファイルは 2 GiB を超えているため、除外しました。",
     "파일 %1개가 2GiB보다 커서 제외했습니다."},
    {"What was found is larger than 2 GiB.", "見つかったファイルは 2 GiB を超えています。",
     "찾은 파일이 2GiB보다 큽니다."},
    {"The files found cannot be searched: their names hold a line break.",
     "見つかったファイルは名前が改行を含むため、検索できません。",
     "찾은 파일은 이름에 줄 바꿈이 있어 검색할 수 없습니다."},
    {"1 file searched", "1 個のファイルを検索しました", "파일 1개를 검색했습니다"},
    {"%1 files searched", "%1 個のファイルを検索しました", "파일 %1개를 검색했습니다"},
    {"Stopped: %1 of %2 files searched", "中止: %2 個のうち %1 個のファイルを検索しました",
     "중지: %2개 중 %1개 파일을 검색했습니다"},
    {"%1, %2 left out", "%1、%2 個を除外", "%1, %2개 제외"},
    {"There is no further result", "次の結果はありません", "다음 결과가 없습니다"},
    {"There is no earlier result", "前の結果はありません", "이전 결과가 없습니다"},
    {"There is no list yet", "一覧はまだありません", "아직 목록이 없습니다"},
    {"A search is running", "検索中です", "검색 중입니다"},
});

}  // namespace

std::span<const ViewerText> searchingTexts() { return searching; }

}  // namespace quorvale
