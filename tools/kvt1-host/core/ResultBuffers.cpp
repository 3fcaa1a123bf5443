#include "tools/kvt1-host/core/ResultBuffers.h"

#include <cstring>
#include <cwchar>

namespace kvt1::emu {
namespace {

resbuf* newBuffer(short type) {
  auto* rb = new resbuf{};
  rb->restype = type;
  return rb;
}

ACHAR* copyString(const ACHAR* text) {
  if (text == nullptr) text = L"";
  const std::size_t length = std::wcslen(text);
  auto* copy = new ACHAR[length + 1];
  std::wmemcpy(copy, text, length + 1);
  return copy;
}

// Appends to a list under construction.
struct ListBuilder {
  resbuf* head = nullptr;
  resbuf* tail = nullptr;
  resbuf* add(short type) {
    resbuf* rb = newBuffer(type);
    (tail ? tail->rbnext : head) = rb;
    tail = rb;
    return rb;
  }
};

void appendValue(ListBuilder& out, const LispValue& value) {
  switch (value.kind) {
    case LispValue::Kind::Nil:
      out.add(RTNIL);
      break;
    case LispValue::Kind::T:
      out.add(RTT);
      break;
    case LispValue::Kind::Integer:
      if (value.integer >= -32768 && value.integer <= 32767) {
        out.add(RTSHORT)->resval.rint = static_cast<short>(value.integer);
      } else {
        out.add(RTLONG)->resval.rlong = static_cast<std::int32_t>(value.integer);
      }
      break;
    case LispValue::Kind::Real:
      out.add(RTREAL)->resval.rreal = value.real;
      break;
    case LispValue::Kind::String:
      out.add(RTSTR)->resval.rstring = copyString(value.text.c_str());
      break;
    case LispValue::Kind::Symbol:
      out.add(RTNIL);
      break;
    case LispValue::Kind::List:
      out.add(RTLB);
      for (const LispValue& item : value.items) appendValue(out, item);
      out.add(RTLE);
      break;
  }
}

// Reads values up to the end of the list or the RTLE closing the current level.
std::vector<LispValue> readValues(const resbuf*& rb) {
  std::vector<LispValue> values;
  for (; rb != nullptr; rb = rb->rbnext) {
    switch (rb->restype) {
      case RTLE:
        return values;
      case RTLB: {
        rb = rb->rbnext;
        values.push_back(LispValue::list(readValues(rb)));
        if (rb == nullptr) return values;
        break;
      }
      case RTSHORT:
        values.push_back(LispValue::fromInteger(rb->resval.rint));
        break;
      case RTLONG:
        values.push_back(LispValue::fromInteger(rb->resval.rlong));
        break;
      case RTREAL:
      case RTANG:
      case RTORINT:
        values.push_back(LispValue::fromReal(rb->resval.rreal));
        break;
      case RTSTR:
        values.push_back(LispValue::fromString(rb->resval.rstring ? rb->resval.rstring : L""));
        break;
      case RTT:
        values.push_back(LispValue::t());
        break;
      case RTPOINT:
        values.push_back(
            LispValue::list({LispValue::fromReal(rb->resval.rpoint[0]), LispValue::fromReal(rb->resval.rpoint[1])}));
        break;
      case RT3DPOINT:
        values.push_back(
            LispValue::list({LispValue::fromReal(rb->resval.rpoint[0]), LispValue::fromReal(rb->resval.rpoint[1]),
                             LispValue::fromReal(rb->resval.rpoint[2])}));
        break;
      case RTDOTE:
        values.push_back(LispValue::symbol(L"."));
        break;
      default:
        values.push_back(LispValue::nil());
    }
  }
  return values;
}

}  // namespace

void releaseList(resbuf* list) {
  while (list != nullptr) {
    resbuf* next = list->rbnext;
    if (list->restype == RTSTR) delete[] list->resval.rstring;
    delete list;
    list = next;
  }
}

resbuf* buildList(int firstType, std::va_list rest) {
  ListBuilder out;
  int depth = 0;
  for (int type = firstType; type != 0 && type != RTNONE; type = va_arg(rest, int)) {
    resbuf* rb = out.add(static_cast<short>(type));
    switch (type) {
      case RTSHORT:
        rb->resval.rint = static_cast<short>(va_arg(rest, int));
        break;
      case RTLONG:
        rb->resval.rlong = va_arg(rest, std::int32_t);
        break;
      case RTREAL:
      case RTANG:
      case RTORINT:
        rb->resval.rreal = va_arg(rest, double);
        break;
      case RTSTR:
        rb->resval.rstring = copyString(va_arg(rest, const ACHAR*));
        break;
      case RTPOINT:
      case RT3DPOINT: {
        const double* point = va_arg(rest, const double*);
        for (int i = 0; i < 3; ++i) rb->resval.rpoint[i] = point[i];
        break;
      }
      case RTLB:
        ++depth;
        break;
      case RTLE:
        if (--depth < 0) {
          releaseList(out.head);
          return nullptr;
        }
        break;
      case RTDOTE:
      case RTNIL:
      case RTT:
      case RTVOID:
        break;
      default:
        releaseList(out.head);
        return nullptr;
    }
  }
  if (depth != 0) {
    releaseList(out.head);
    return nullptr;
  }
  return out.head;
}

resbuf* toArgumentList(const std::vector<LispValue>& args) {
  ListBuilder out;
  for (const LispValue& arg : args) appendValue(out, arg);
  return out.head;
}

LispValue fromResultList(const resbuf* list) {
  const resbuf* rb = list;
  return LispValue::list(readValues(rb));
}

}  // namespace kvt1::emu
