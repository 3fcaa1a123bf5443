#include "text/XmlCodePageTable.h"

#include <cstddef>
#include <string_view>

#include "platform/CaseFolding.h"
#include "platform/Unicode.h"

namespace kvt1 {
namespace {

// One row per name: the name's length (two digits), the code page (five
// digits) and the name in lower case.
constexpr std::string_view kCodePageRows =
    "0820127us-ascii0520127ascii0220127us0920127iso646-us1020127iso-ir-6us1620127iso_646.irv:1991"
    "1420127ansi_x3.4-19681420127ansi_x3.4-19860520127cp3670620127ibm3670720127csascii0820127iso-ir-6"
    "0520127x-ia51201250windows-12500801250x-cp12500601250cp12501201251windows-12510801251x-cp1251"
    "0601251cp12511201252windows-12520601252x-ansi0601252cp12520701252ms-ansi1201253windows-1253"
    "0601253cp12531201254windows-12540601254cp12541201255windows-12550601255cp12551201256windows-1256"
    "0601256cp12561201257windows-12570601257cp12571001257winbaltrim1201258windows-12580601258cp1258"
    "1100874windows-8740700874dos-8740700874tis-6201100874iso-8859-110500874cp8741028591iso-8859-1"
    "0928591iso8859-11028591iso_8859-11528591iso_8859-1:19870628591latin10228591l10528591cp819"
    "0628591ibm8191128591csisolatin11028591iso-ir-1001028592iso-8859-20928592iso8859-2"
    "1028592iso_8859-21528592iso_8859-2:19870628592latin20228592l21128592csisolatin21028592iso-ir-101"
    "1028593iso-8859-31028593iso_8859-30628593latin30228593l31128593csisolatin31028593iso-ir-109"
    "1028594iso-8859-41028594iso_8859-40628594latin40228594l41128594csisolatin41028594iso-ir-110"
    "1028595iso-8859-51028595iso_8859-50828595cyrillic1828595csisolatincyrillic1028595iso-ir-144"
    "1028596iso-8859-61028596iso_8859-60628596arabic1628596csisolatinarabic0828596ecma-114"
    "0828596asmo-7081028596iso-ir-1271028597iso-8859-71028597iso_8859-70528597greek0628597greek8"
    "0828597elot_9280828597ecma-1181528597csisolatingreek1028597iso-ir-1261028598iso-8859-8"
    "1028598iso_8859-80628598hebrew1628598csisolatinhebrew0628598visual1028598iso-ir-138"
    "1238598iso-8859-8-i0738598logical1028599iso-8859-91028599iso_8859-90628599latin50228599l5"
    "1128599csisolatin51028599iso-ir-1481128603iso-8859-131128605iso-8859-151128605iso_8859-15"
    "0728605latin-90628605latin90228605l91128605csisolatin90620866koi8-r0420866koi80320866koi"
    "0720866cskoi8r0621866koi8-u0721866koi8-ru0600437ibm4370500437cp4370300437437"
    "1600437cspc8codepage4370600850ibm8500500850cp8500600852ibm8520500852cp8520600866ibm866"
    "0500866cp8660900932shift_jis0900932shift-jis0400932sjis0900932sjis-open0800932ms_kanji"
    "1000932csshiftjis0600932x-sjis1100932windows-31j1200932cswindows31j0600936gb23120300936gbk"
    "0500936cn-gb0800936csgb23120500936x-gbk1000936gb_2312-800700936chinese1500936csiso58gb231280"
    "0900936iso-ir-580800936x-euc-cn0600936euc-cn1400949ks_c_5601-19870900949ks_c_56010800949ksc_5601"
    "0900949ks-c-56011400949ks_c_5601-19890600949korean1300949csksc560119871000949iso-ir-149"
    "0400950big50700950cn-big50600950csbig50800950x-x-big51000950big5-hkscs0651932euc-jp"
    "0851932x-euc-jp1951932cseucpkdfmtjapanese0651949euc-kr0751949cseuckr0754936gb18030"
    "1150220iso-2022-jp1150225iso-2022-kr1150225csiso2022kr0910000macintosh0310000mac"
    "1110000x-mac-roman1410007x-mac-cyrillic0565000utf-71765000unicode-1-1-utf-7"
    "1565000csunicode11utf71565000x-unicode20utf70765001cp650011765001unicode-1-1-utf-8"
    "1765001unicode-2-0-utf-81565001x-unicode20utf8";

unsigned digits(std::string_view text) {
  unsigned value = 0;
  for (const char c : text) value = value * 10 + static_cast<unsigned>(c - '0');
  return value;
}

}  // namespace

unsigned codePageFromEncodingName(std::wstring_view name) {
  std::size_t pos = 0;
  while (pos + 7 <= kCodePageRows.size()) {
    const std::size_t length = digits(kCodePageRows.substr(pos, 2));
    if (platform::asciiLowerCase(name) == platform::fromUtf8(kCodePageRows.substr(pos + 7, length)))
      return digits(kCodePageRows.substr(pos + 2, 5));
    pos += 7 + length;
  }
  return 0;
}

}  // namespace kvt1
