#include "support/control_inside.h"

namespace quorvale {
namespace {

const ControlParts& PartsOf(const QuorvaleBox& box);

// An explicit instantiation may name what is private: so the control needs no door of its own.
template <auto Parts>
struct Door {
    friend const ControlParts& PartsOf(const QuorvaleBox& box) { return *(box.*Parts); }
};

template struct Door<&QuorvaleBox::parts_>;

}  // namespace

const ControlParts& Inside(const QuorvaleBox& box) { return PartsOf(box); }

}  // namespace quorvale
