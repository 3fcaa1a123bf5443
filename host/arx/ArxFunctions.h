#pragma once
// The host's free functions that the module calls, with the signatures of the
// release it is built for (KVT1_ARX_RELEASE).
#include <cstddef>

#include "host/arx/ArxExport.h"
#include "host/arx/ArxTypes.h"

extern "C" {

// LISP function table of the current document.
KVT1_ARX_API int acedDefun(const ACHAR* pszName, ArxFunctionNumber nFuncNum);
KVT1_ARX_API int acedUndef(const ACHAR* pszName, ArxFunctionNumber nFuncNum);
KVT1_ARX_API int acedSetFunHelp(const ACHAR* pszFunctionName, const ACHAR* pszHelpfile, const ACHAR* pszTopic,
                                int iCmd);

// The LISP call in progress: its function code, arguments and result.
KVT1_ARX_API int acedGetFunCode(void);
KVT1_ARX_API struct resbuf* acedGetArgs(void);
KVT1_ARX_API int acedRetList(const struct resbuf* rbuf);
KVT1_ARX_API int acedRetStr(const ACHAR* s);

// The host's environment values ("ACAD" is the support search path).
#if KVT1_ARX_RELEASE >= 20
KVT1_ARX_API int acedGetEnv(const ACHAR* sym, ACHAR* var, std::size_t nBufLen);
#else
KVT1_ARX_API int acedGetEnv(const ACHAR* sym, ACHAR* var);
#endif
KVT1_ARX_API int acedSetEnv(const ACHAR* sym, const ACHAR* val);

// Expressions queued for the command line, run when the host is next idle.
#if KVT1_ARX_RELEASE >= 20
KVT1_ARX_API int ads_queueexpr(const ACHAR* expr);
#else
KVT1_ARX_API int ads_queueexpr(ACHAR* expr);
#endif

KVT1_ARX_API HWND adsw_acadMainWnd(void);

// Result lists and console output.
KVT1_ARX_API struct resbuf* acutBuildList(int rtype, ...);
KVT1_ARX_API int acutRelRb(struct resbuf* rb);
KVT1_ARX_API int acutPrintf(const ACHAR* format, ...);
KVT1_ARX_API void acdbFail(const ACHAR* str);

}  // extern "C"
