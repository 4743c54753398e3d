#include <array>

#include "resources/text_tables.h"

namespace quorvale {

namespace {

// 114 and 507 have no leading blank, unlike the other languages, and 122 is not translated:
// hosts know these texts as they are.
constexpr std::array<TextEntry, 34> texts{{
    {100, u"파일 이름"},
    {101, u"행 번호"},
    {102, u"소스 행"},
    {103, u"찾기"},
    {104, u"모두 찾기"},
    {105, u"와일드카드로 모두 찾기"},
    {106, u"-"},
    {107, u"최근 검색 목록"},
    {108, u"행으로 이동"},
    {109, u"행 접기"},
    {110, u"편집"},
    {111, u"경계 표시"},
    {112, u"검색"},
    {113, u"999999"},
    {114, u"행 0 "},
    {115, u"팝업"},
    {116, u"편집(&E)"},
    {117, u"실행 취소(&U)"},
    {118, u"모두 실행 취소(&A)"},
    {119, u"이전 정정(&P)"},
    {120, u"다음 정정(&N)"},
    {121, u"업데이트 사항 확약(&C)"},
    {122, u"PopupCollapse"},
    {123, u"모두 접기(&C)"},
    {124, u"모두 펼치기(&E)"},
    {125, u"다음 찾기"},
    {500, u"파일 저장 실패.%1"},
    {501, u"파일에 대한 마지막 업데이트입니다."},
    {502, u"파일에 대한 첫 번째 업데이트입니다."},
    {503, u"파일 정정사항을 모두 실행 취소하려고 합니다.%1계속하시겠습니까?"},
    {504, u"리턴"},
    {505, u"%1개 일치 항목이 발견되었습니다."},
    {506, u"일치 항목이 없습니다."},
    {507, u"행 %1 "},
}};

}  // namespace

std::span<const TextEntry> KoreanTexts() { return texts; }

}  // namespace quorvale
