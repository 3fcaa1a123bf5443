#pragma once
// The CAD host's basic types and codes, as its ARX interface defines them:
// application messages and return codes, the result buffer list and its type
// codes, status codes, and the handle types of the Windows API.
#include <cstdint>

#include "platform/Win32.h"

typedef wchar_t ACHAR;

namespace Adesk {
typedef std::int32_t Int32;
typedef std::uint32_t UInt32;
}  // namespace Adesk

namespace AcRx {

// Application messages, in the host's order; the entry point receives them.
enum AppMsgCode {
  kNullMsg = 0,
  kInitAppMsg = 1,
  kUnloadAppMsg = 2,
  kLoadDwgMsg = 3,
  kUnloadDwgMsg = 4,
  kInvkSubrMsg = 5,
  kCfgMsg = 6,
  kEndMsg = 7,
  kQuitMsg = 8,
  kSaveMsg = 9,
  kDependencyMsg = 10,
  kNoDependencyMsg = 11,
  kOleUnloadAppMsg = 12,
  kPreQuitMsg = 13,
  kInitDialogMsg = 14,
  kEndDialogMsg = 15,
  kSuspendMsg = 16,
  kInitTabGroupMsg = 17,
  kEndTabGroupMsg = 18
};

enum AppRetCode { kRetOK = 0, kRetError = 3 };

}  // namespace AcRx

namespace Acad {
enum ErrorStatus { eOk = 0 };
}  // namespace Acad

// Result buffer type codes.
enum {
  RTNONE = 5000,
  RTREAL = 5001,
  RTPOINT = 5002,
  RTSHORT = 5003,
  RTANG = 5004,
  RTSTR = 5005,
  RTENAME = 5006,
  RTPICKS = 5007,
  RTORINT = 5008,
  RT3DPOINT = 5009,
  RTLONG = 5010,
  RTVOID = 5014,
  RTLB = 5016,
  RTLE = 5017,
  RTDOTE = 5018,
  RTNIL = 5019,
  RTDXF0 = 5020,
  RTT = 5021,
  RTRESBUF = 5023
};

// Status codes of the host's functions.
enum { RTNORM = 5100, RTERROR = -5001, RTCAN = -5002, RTREJ = -5003, RTFAIL = -5004, RTKWORD = -5005 };

#pragma pack(push, 8)

typedef double ads_real;
typedef ads_real ads_point[3];
typedef std::intptr_t ads_name[2];

struct ads_binary {
  short clen;
  char* buf;
};

union ads_u_val {
  ads_real rreal;
  ads_real rpoint[3];
  short rint;
  ACHAR* rstring;
  std::intptr_t rlname[2];
  std::intptr_t mnLongPtr;
  std::int32_t rlong;
  std::int64_t mnInt64;
  struct ads_binary rbinary;
  unsigned char ihandle[8];
};

struct resbuf {
  struct resbuf* rbnext;
  short restype;
  union ads_u_val resval;
};

#pragma pack(pop)
