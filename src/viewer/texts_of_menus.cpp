#include <array>

#include "viewer/viewer_translator.h"

namespace quorvale {

namespace {

constexpr auto menus = std::to_array<ViewerText>({
    {"&File", "ファイル(&F)", "파일(&F)"},
    {"&Edit", "編集(&E)", "편집(&E)"},
    {"&Search", "検索(&S)", "검색(&S)"},
    {"&View", "表示(&V)", "보기(&V)"},
    {"&Help", "ヘルプ(&H)", "도움말(&H)"},
    {"&Open...", "開く(&O)...", "열기(&O)..."},
    {"&Recent files", "最近使ったファイル(&R)", "최근 파일(&R)"},
    {"None yet", "まだありません", "아직 없음"},
    {"&Clear the list", "一覧を消去(&C)", "목록 지우기(&C)"},
    {"&Quit", "終了(&Q)", "끝내기(&Q)"},
    {"&Copy rows", "行をコピー(&C)", "행 복사(&C)"},
    {"Copy rows with line &numbers", "行番号付きでコピー(&N)", "행 번호와 함께 복사(&N)"},
    {"&Edit lines", "行を編集(&E)", "행 편집(&E)"},
    {"C&orrection at the caret...", "カーソル位置の修正(&O)...", "커서 위치의 정정(&O)..."},
    {"&Undo correction", "修正を取り消す(&U)", "정정 실행 취소(&U)"},
    {"Undo &all corrections...", "すべての修正を取り消す(&A)...", "모든 정정 실행 취소(&A)..."},
    {"&Previous correction", "前の修正(&P)", "이전 정정(&P)"},
    {"Ne&xt correction", "次の修正(&X)", "다음 정정(&X)"},
    {"Co&mmit into the file", "ファイルにコミット(&M)", "파일에 확약(&M)"},
    {"&Find...", "検索(&F)...", "찾기(&F)..."},
    {"Find &next", "次を検索(&N)", "다음 찾기(&N)"},
    {"Find &previous", "前を検索(&P)", "이전 찾기(&P)"},
    {"List &all matches", "一致をすべて一覧表示(&A)", "일치 항목 모두 나열(&A)"},
    {"List all matches of a pa&ttern", "ワイルドカードの一致を一覧表示(&T)",
     "와일드카드 일치 항목 나열(&T)"},
    {"&In files...", "複数のファイルから検索(&I)...", "파일에서 찾기(&I)..."},
    {"Last &list", "前回の一覧(&L)", "마지막 목록(&L)"},
    {"Next &result", "次の結果(&R)", "다음 결과(&R)"},
    {"Pr&evious result", "前の結果(&E)", "이전 결과(&E)"},
    {"&Go to line...", "指定行へジャンプ(&G)...", "행으로 이동(&G)..."},
    {"Fold by &indentation", "字下げで折りたたむ(&I)", "들여쓰기로 접기(&I)"},
    {"Fold by &blank lines", "空行で折りたたむ(&B)", "빈 행으로 접기(&B)"},
    {"F&old or unfold here", "ここで折りたたむ/展開する(&O)", "여기서 접기/펼치기(&O)"},
    {"Fold &all", "すべて折りたたむ(&A)", "모두 접기(&A)"},
    {"&Unfold all", "すべて展開(&U)", "모두 펼치기(&U)"},
    {"&Colour errors and warnings", "エラーと警告に色を付ける(&C)", "오류와 경고에 색 표시(&C)"},
    {"Show bou&ndaries", "境界の表示(&N)", "경계 표시(&N)"},
    {"Show &toolbar", "ツールバーの表示(&T)", "도구 모음 표시(&T)"},
    {"&Font...", "フォント(&F)...", "글꼴(&F)..."},
    {"Font of the text", "テキストのフォント", "텍스트 글꼴"},
    {"&Larger", "文字を大きく(&L)", "글자 크게(&L)"},
    {"&Smaller", "文字を小さく(&S)", "글자 작게(&S)"},
    {"No&rmal size", "標準の大きさ(&R)", "기본 크기(&R)"},
    {"A&ppearance", "外観(&P)", "모양(&P)"},
    {"Lan&guage", "言語(&G)", "언어(&G)"},
    {"As the &desktop", "デスクトップに合わせる(&D)", "데스크톱에 맞춤(&D)"},
    {"&Light", "ライト(&L)", "밝게(&L)"},
    {"D&ark", "ダーク(&A)", "어둡게(&A)"},
    {"&Keys", "キー一覧(&K)", "키 목록(&K)"},
    {"&About QuorvaleBox", "QuorvaleBox について(&A)", "QuorvaleBox 정보(&A)"},
});

}  // namespace

std::span<const ViewerText> menuTexts() { return menus; }

}  // namespace quorvale
