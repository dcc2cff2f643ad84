// Which type the bytes of a record of unknown type are likely to be of.

#ifndef VANTIRO_TOOLS_IDENTIFY_H_
#define VANTIRO_TOOLS_IDENTIFY_H_

#include <string>
#include <string_view>
#include <vector>

#include "tools/evidence.h"
#include "tools/schema.h"

namespace vantiro {
namespace inspection {

struct Candidate {
  const Descriptor* type;
  Evidence evidence;
  // The share of the bytes that lie in fields of the type, in percent.
  int known_percent;
  // What speaks for the type, and against it.
  std::string reason;
};

// The types, the likeliest first. Those for which the evidence is alike stand
// in their order in `types`.
std::vector<Candidate> Identify(const std::vector<const Descriptor*>& types,
                                std::string_view bytes);

// Whether nothing in the bytes tells the two apart.
bool IsTie(const Candidate& a, const Candidate& b);

// Whether the best of the candidates is likely to be right, not just the least
// bad one.
bool IsConvincing(const Candidate& best);

}  // namespace inspection
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_IDENTIFY_H_
