// The host functions that a module imports, implemented on the emulated host.
#include <cstdarg>
#include <cwchar>

#include "host/arx/ArxClasses.h"
#include "host/arx/ArxFunctions.h"
#include "platform/WideFormat.h"
#include "tools/kvt1-host/core/EmulatedHost.h"
#include "tools/kvt1-host/core/ResultBuffers.h"

using kvt1::emu::EmulatedHost;

namespace {
EmulatedHost& host() { return EmulatedHost::instance(); }
}  // namespace

extern "C" {

int acedDefun(const ACHAR* pszName, ArxFunctionNumber nFuncNum) {
  return pszName && host().defineFunction(pszName, nFuncNum) ? RTNORM : RTERROR;
}

int acedUndef(const ACHAR* pszName, ArxFunctionNumber nFuncNum) {
  return pszName && host().undefineFunction(pszName, nFuncNum) ? RTNORM : RTERROR;
}

int acedSetFunHelp(const ACHAR* pszFunctionName, const ACHAR* pszHelpfile, const ACHAR* pszTopic, int iCmd) {
  if (!pszFunctionName || !pszHelpfile) return RTERROR;
  host().recordFunctionHelp({pszFunctionName, pszHelpfile, pszTopic ? pszTopic : L"", iCmd});
  host().print(kvt1::platform::formatWide(L"function help: %s -> topic \"%s\" of %s\n", pszFunctionName,
                                          pszTopic ? pszTopic : L"", pszHelpfile));
  return RTNORM;
}

int acedGetFunCode(void) { return host().inCall() ? host().callCode() : RTERROR; }

struct resbuf* acedGetArgs(void) {
  return host().inCall() ? host().callArgs() : nullptr;
}

int acedRetList(const struct resbuf* rbuf) {
  if (!host().inCall()) return RTERROR;
  host().setResult(kvt1::emu::fromResultList(rbuf));
  return RTNORM;
}

int acedRetStr(const ACHAR* s) {
  if (!host().inCall()) return RTERROR;
  host().setResult(kvt1::emu::LispValue::fromString(s ? s : L""));
  return RTNORM;
}

#if KVT1_ARX_RELEASE >= 20
int acedGetEnv(const ACHAR* sym, ACHAR* var, std::size_t nBufLen) {
#else
int acedGetEnv(const ACHAR* sym, ACHAR* var) {
  const std::size_t nBufLen = static_cast<std::size_t>(-1);
#endif
  if (!sym || !var) return RTERROR;
  const std::optional<std::wstring> value = host().environment(sym);
  if (!value || value->size() + 1 > nBufLen) return RTERROR;
  std::wmemcpy(var, value->c_str(), value->size() + 1);
  return RTNORM;
}

int acedSetEnv(const ACHAR* sym, const ACHAR* val) {
  if (!sym || !val) return RTERROR;
  host().setEnvironment(sym, val);
  return RTNORM;
}

#if KVT1_ARX_RELEASE >= 20
int ads_queueexpr(const ACHAR* expr) {
#else
int ads_queueexpr(ACHAR* expr) {
#endif
  if (!expr) return RTERROR;
  host().queueExpression(expr);
  return RTNORM;
}

HWND adsw_acadMainWnd(void) { return nullptr; }

struct resbuf* acutBuildList(int rtype, ...) {
  std::va_list rest;
  va_start(rest, rtype);
  resbuf* list = kvt1::emu::buildList(rtype, rest);
  va_end(rest);
  return list;
}

int acutRelRb(struct resbuf* rb) {
  kvt1::emu::releaseList(rb);
  return RTNORM;
}

int acutPrintf(const ACHAR* format, ...) {
  if (!format) return 0;
  std::va_list args;
  va_start(args, format);
  const std::wstring text = kvt1::platform::formatWideV(format, args);
  va_end(args);
  host().print(text);
  return static_cast<int>(text.size());
}

void acdbFail(const ACHAR* str) { host().print(str ? str : L""); }

AcRxDictionary* acrxSysRegistry() { return &host().systemRegistry(); }

}  // extern "C"

AcApDocManager* acDocManagerPtr() { return &host().documentManager(); }

AcRxClass* AcEdCommandStack::desc() { return const_cast<kvt1::emu::EmuClass*>(&kvt1::emu::commandStackClass()); }

bool AcRxClass::isDerivedFrom(const AcRxClass* other) const {
  for (auto* cls = static_cast<const kvt1::emu::EmuClass*>(this); cls != nullptr; cls = cls->parent()) {
    if (cls == other) return true;
  }
  return false;
}
