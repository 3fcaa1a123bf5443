#include "text/XmlEntities.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <vector>

namespace kvt1 {
namespace {

// The HTML 4 character entities, sorted by name. Each row is the name's length
// (one digit), the code point (four decimal digits) and the name.
constexpr std::string_view kHtmlEntityRows =
    "50198AElig60193Aacute50194Acirc60192Agrave50913Alpha50197Aring60195Atilde40196Auml40914Beta"
    "60199Ccedil30935Chi68225Dagger50916Delta30208ETH60201Eacute50202Ecirc60200Egrave70917Epsilon"
    "30919Eta40203Euml50915Gamma60205Iacute50206Icirc60204Igrave40921Iota40207Iuml50922Kappa"
    "60923Lambda20924Mu60209Ntilde20925Nu50338OElig60211Oacute50212Ocirc60210Ograve50937Omega"
    "70927Omicron60216Oslash60213Otilde40214Ouml30934Phi20928Pi58243Prime30936Psi30929Rho60352Scaron"
    "50931Sigma50222THORN30932Tau50920Theta60218Uacute50219Ucirc60217Ugrave70933Upsilon40220Uuml"
    "20926Xi60221Yacute40376Yuml40918Zeta60225aacute50226acirc50180acute50230aelig60224agrave"
    "78501alefsym50945alpha30038amp38743and38736ang50229aring58776asymp60227atilde40228auml58222bdquo"
    "40946beta60166brvbar48226bull38745cap60231ccedil50184cedil40162cent30967chi40710circ59827clubs"
    "48773cong40169copy58629crarr38746cup60164curren48659dArr68224dagger48595darr30176deg50948delta"
    "59830diams60247divide60233eacute50234ecirc60232egrave58709empty48195emsp48194ensp70949epsilon"
    "58801equiv30951eta30240eth40235euml48364euro58707exist40402fnof68704forall60189frac1260188frac14"
    "60190frac3458260frasl50947gamma28805ge20062gt48660hArr48596harr69829hearts68230hellip60237iacute"
    "50238icirc50161iexcl60236igrave58465image58734infin38747int40953iota60191iquest48712isin"
    "40239iuml50954kappa48656lArr60955lambda49001lang50171laquo48592larr58968lceil58220ldquo28804le"
    "68970lfloor68727lowast39674loz38206lrm68249lsaquo58216lsquo20060lt40175macr58212mdash50181micro"
    "60183middot58722minus20956mu58711nabla40160nbsp58211ndash28800ne28715ni30172not58713notin"
    "48836nsub60241ntilde20957nu60243oacute50244ocirc50339oelig60242ograve58254oline50969omega"
    "70959omicron58853oplus28744or40170ordf40186ordm60248oslash60245otilde68855otimes40246ouml"
    "40182para48706part68240permil48869perp30966phi20960pi30982piv60177plusmn50163pound58242prime"
    "48719prod48733prop30968psi40034quot48658rArr58730radic49002rang50187raquo48594rarr58969rceil"
    "58221rdquo48476real30174reg68971rfloor30961rho38207rlm68250rsaquo58217rsquo58218sbquo60353scaron"
    "48901sdot40167sect30173shy50963sigma60962sigmaf38764sim69824spades38834sub48838sube38721sum"
    "38835sup40185sup140178sup240179sup348839supe50223szlig30964tau68756there450952theta80977thetasym"
    "68201thinsp50254thorn50732tilde50215times58482trade48657uArr60250uacute48593uarr50251ucirc"
    "60249ugrave30168uml50978upsih70965upsilon40252uuml68472weierp20958xi60253yacute30165yen40255yuml"
    "40950zeta38205zwj48204zwnj";

struct EntityRow {
  std::string_view name;
  char32_t codePoint;
};

std::vector<EntityRow> unpackRows() {
  std::vector<EntityRow> rows;
  std::size_t pos = 0;
  while (pos + 5 < kHtmlEntityRows.size()) {
    const std::size_t length = static_cast<std::size_t>(kHtmlEntityRows[pos] - '0');
    char32_t codePoint = 0;
    for (std::size_t i = 1; i <= 4; ++i)
      codePoint = codePoint * 10 + static_cast<char32_t>(kHtmlEntityRows[pos + i] - '0');
    rows.push_back({kHtmlEntityRows.substr(pos + 5, length), codePoint});
    pos += 5 + length;
  }
  return rows;
}

// Compares a wide name with an ASCII row name in byte order.
int compareName(std::wstring_view name, std::string_view row) {
  const std::size_t common = std::min(name.size(), row.size());
  for (std::size_t i = 0; i < common; ++i) {
    const auto a = static_cast<unsigned long>(name[i]);
    const auto b = static_cast<unsigned long>(static_cast<unsigned char>(row[i]));
    if (a != b) return a < b ? -1 : 1;
  }
  return name.size() == row.size() ? 0 : (name.size() < row.size() ? -1 : 1);
}

}  // namespace

char32_t htmlEntityCodePoint(std::wstring_view name) {
  static const std::vector<EntityRow> rows = unpackRows();
  const auto it = std::lower_bound(rows.begin(), rows.end(), name, [](const EntityRow& row, std::wstring_view key) {
    return compareName(key, row.name) > 0;
  });
  return it != rows.end() && compareName(name, it->name) == 0 ? it->codePoint : 0;
}

}  // namespace kvt1
