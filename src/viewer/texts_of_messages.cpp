#include <array>

#include "viewer/viewer_translator.h"

namespace quorvale {

namespace {

constexpr auto messages = std::to_array<ViewerText>({
    {"About QuorvaleBox", "QuorvaleBox について", "QuorvaleBox 정보"},
    {"Shows large text files as rows, and corrects single lines.",
     "大きなテキストファイルを行として表示し、一行ずつ修正します。",
     "큰 텍스트 파일을 행으로 보여 주고 한 행씩 정정합니다."},
    {"With Qt %1.", "Qt %1 を使用しています。", "Qt %1 사용."},
    {"Licence: MIT. Copyright (c) 2026 The QuorvaleBox authors",
     "ライセンス: MIT。Copyright (c) 2026 The QuorvaleBox authors",
     "라이선스: MIT. Copyright (c) 2026 The QuorvaleBox authors"},
    {"Keys", "キー一覧", "키 목록"},
    {"In the text", "テキスト", "텍스트에서"},
    {"Select rows", "行を選択", "행 선택"},
    {"Select everything", "すべて選択", "모두 선택"},
    {"First and last line", "先頭の行と最後の行", "첫 행과 마지막 행"},
    {"The menu of the rows", "行のメニュー", "행 메뉴"},
    {"To the boxes and buttons and back", "入力欄・ボタンへの移動と復帰",
     "입력란과 버튼으로, 그리고 뒤로"},
    {"While a line is corrected", "行の修正中", "행을 정정하는 동안"},
    {"Keep the correction", "修正を確定", "정정 유지"},
    {"Drop what was typed", "入力を破棄", "입력한 내용 버리기"},
    {"Text size %1", "文字の大きさ %1", "글자 크기 %1"},
    {"There is no such file.", "そのファイルはありません。", "그런 파일이 없습니다."},
    {"It is a directory.", "これはディレクトリです。", "디렉터리입니다."},
    {"It is a device or a pipe, not a file.", "これはファイルではなく、デバイスまたはパイプです。",
     "파일이 아니라 장치 또는 파이프입니다."},
    {"You do not have permission to read it.", "読み取る権限がありません。",
     "읽을 권한이 없습니다."},
    {"It is larger than 2 GiB.", "2 GiB を超えています。", "2GiB보다 큽니다."},
    {"%1 cannot be opened. %2", "%1 を開けません。%2", "%1을(를) 열 수 없습니다. %2"},
    {"%1 could not be read to its end.", "%1 を最後まで読み取れませんでした。",
     "%1을(를) 끝까지 읽을 수 없습니다."},
    {"%1 is not there any more. It was taken off the list.",
     "%1 はもうありません。一覧から外しました。", "%1이(가) 더 이상 없습니다. 목록에서 뺐습니다."},
    {"Open a file", "ファイルを開く", "파일 열기"},
    {"UTF-8", "UTF-8", "UTF-8"},
    {"Windows-1252", "Windows-1252", "Windows-1252"},
    {"one byte per character", "1 文字 1 バイト", "문자당 1바이트"},
    {"1 line", "1 行", "1행"},
    {"%1 lines", "%1 行", "%1행"},
    {"1 row copied", "1 行をコピーしました", "1행을 복사했습니다"},
    {"%1 rows copied", "%1 行をコピーしました", "%1행을 복사했습니다"},
    {"Too much text to copy: select fewer rows",
     "コピーするには多すぎます。選択する行を減らしてください",
     "복사하기에 너무 많습니다. 행을 더 적게 선택하십시오"},
    {"1 correction not committed", "コミットしていない修正 1 件", "확약하지 않은 정정 1개"},
    {"%1 corrections not committed", "コミットしていない修正 %1 件", "확약하지 않은 정정 %1개"},
    {"1 range can be folded", "1 個の範囲を折りたためます", "범위 1개를 접을 수 있습니다"},
    {"%1 ranges can be folded", "%1 個の範囲を折りたためます", "범위 %1개를 접을 수 있습니다"},
    {"Only the first %1 ranges can be folded", "折りたためるのは最初の %1 個の範囲だけです",
     "처음 %1개 범위만 접을 수 있습니다"},
    {"No range begins in this line", "この行から始まる範囲はありません",
     "이 행에서 시작하는 범위가 없습니다"},
    {"There is no further correction", "次の修正はありません", "다음 정정이 없습니다"},
    {"There is no earlier correction", "前の修正はありません", "이전 정정이 없습니다"},
    {"There is no correction in this line", "この行に修正はありません",
     "이 행에는 정정이 없습니다"},
    {"The text was not found", "見つかりませんでした", "텍스트를 찾을 수 없습니다"},
    {"The search went on at the other end", "反対側の端から検索を続けました",
     "반대쪽 끝에서 검색을 계속했습니다"},
    {"The search was stopped", "検索を中止しました", "검색을 중지했습니다"},
    {"Another program has this file open for corrections: here it is only shown",
     "別のプログラムがこのファイルを修正用に開いています。ここでは表示のみです",
     "다른 프로그램이 이 파일을 정정용으로 열었습니다. 여기서는 표시만 됩니다"},
    {"This file is only shown: it cannot be locked for corrections (%1)",
     "このファイルは表示のみです。修正用にロックできません (%1)",
     "이 파일은 표시만 됩니다. 정정용으로 잠글 수 없습니다(%1)"},
    {"The corrections that lie beside this file cannot be read: %1. They stay as they are, "
     "and the file cannot be corrected until they can.",
     "このファイルの修正を読み取れません: %1。修正はそのまま残ります。読み取れるようになるまで、"
     "ファイルは修正できません。",
     "이 파일의 정정사항을 읽을 수 없습니다: %1. 정정사항은 그대로 남으며, 읽을 수 있게 될 "
     "때까지 파일을 정정할 수 없습니다."},
    {"Another program had written %1. Its version was kept as %2.",
     "別のプログラムが %1 に書き込んでいました。その内容は %2 に残してあります。",
     "다른 프로그램이 %1에 썼습니다. 그 내용은 %2(으)로 보관했습니다."},
    {"Corrections that do not belong to %1 as it is now were kept as %2.",
     "現在の %1 に合わない修正は %2 に残してあります。",
     "지금의 %1에 맞지 않는 정정사항은 %2(으)로 보관했습니다."},
    {"%1 was being written when a program ended, and has been changed since. What was to be "
     "written is in %2.",
     "%1 "
     "への書き込み中にプログラムが終了し、その後ファイルが変更されました。書き込むはずだった内容は "
     "%2 にあります。",
     "%1에 쓰는 중에 프로그램이 끝났고 그 뒤에 파일이 바뀌었습니다. 쓰려던 내용은 %2에 있습니다."},
    {"An interrupted commit was brought to its end", "中断されたコミットを完了しました",
     "중단된 확약을 끝까지 마쳤습니다"},
    {"1 correction does not fit this file.", "1 件の修正がこのファイルに合いません。",
     "정정 1개가 이 파일에 맞지 않습니다."},
    {"%1 corrections do not fit this file.", "%1 件の修正がこのファイルに合いません。",
     "정정 %1개가 이 파일에 맞지 않습니다."},
    {"They reach behind its end, overlap others or cannot be read whole. Committing drops "
     "them, or part of them; a copy of all corrections is kept.",
     "ファイルの終わりを越える、他と重なる、または完全には読み取れない修正です。コミットすると全部"
     "または"
     "一部が失われますが、すべての修正の写しを残します。",
     "파일 끝을 넘거나 다른 정정과 겹치거나 온전히 읽을 수 없습니다. 확약하면 전부 또는 일부가 "
     "버려지며, 모든 정정사항의 사본을 보관합니다."},
    {"A copy of all corrections was kept as %1", "すべての修正の写しを %1 に残しました",
     "모든 정정사항의 사본을 %1(으)로 보관했습니다"},
    {"Nothing was committed: no copy of the corrections could be kept (%1)",
     "コミットしませんでした。修正の写しを残せません (%1)",
     "확약하지 않았습니다. 정정사항의 사본을 보관할 수 없습니다(%1)"},
    {"%1 is not there any more.", "%1 はもうありません。", "%1이(가) 더 이상 없습니다."},
    {"Committing writes it anew, as it is shown, with your corrections.",
     "コミットすると、表示中の内容に修正を加えて新しく書き込みます。",
     "확약하면 표시된 내용에 정정사항을 넣어 새로 씁니다."},
    {"Too much text to edit: select fewer rows",
     "編集するには多すぎます。選択する行を減らしてください",
     "편집하기에 너무 많습니다. 행을 더 적게 선택하십시오"},
    {"This file is only shown: it is UTF-16 text, which cannot be corrected",
     "このファイルは表示のみです。UTF-16 のテキストは修正できません",
     "이 파일은 표시만 됩니다. UTF-16 텍스트는 정정할 수 없습니다"},
    {"Commit &without them", "それらを除いてコミット(&W)", "제외하고 확약(&W)"},
    {"%1 has changed on the disk since it was opened.",
     "%1 は開いた後にディスク上で変更されました。", "%1이(가) 연 뒤에 디스크에서 바뀌었습니다."},
    {"Your corrections were made to the lines as they were then. Reloading keeps them and "
     "shows them over the file as it is now; committing replaces that file.",
     "修正は開いたときの行に対するものです。再読み込みすると修正を保ったまま現在のファイルに重ねて"
     "表示し、"
     "コミットするとそのファイルを置き換えます。",
     "정정은 열었을 때의 행에 한 것입니다. 다시 불러오면 정정을 유지한 채 지금의 파일 위에 "
     "표시하고, 확약하면 그 파일을 바꿉니다."},
    {"&Reload", "再読み込み(&R)", "다시 불러오기(&R)"},
    {"Commit &anyway", "それでもコミット(&A)", "그래도 확약(&A)"},
    {"There is not enough memory.", "メモリが足りません。", "메모리가 부족합니다."},
    {"They are too large.", "大きすぎます。", "너무 큽니다."},
    {"Your corrections could not be saved.", "修正を保存できませんでした。",
     "정정사항을 저장할 수 없습니다."},
    {"&Try again", "もう一度試す(&T)", "다시 시도(&T)"},
    {"Close &without them", "保存せずに閉じる(&W)", "저장하지 않고 닫기(&W)"},
});

constexpr auto buttons = std::to_array<ViewerText>({
    {"OK", "OK", "확인"},
    {"&OK", "OK(&O)", "확인(&O)"},
    {"Cancel", "キャンセル", "취소"},
    {"&Cancel", "キャンセル(&C)", "취소(&C)"},
    {"Close", "閉じる", "닫기"},
    {"&Close", "閉じる(&C)", "닫기(&C)"},
});

}  // namespace

std::span<const ViewerText> messageTexts() { return messages; }
std::span<const ViewerText> buttonTexts() { return buttons; }

}  // namespace quorvale
