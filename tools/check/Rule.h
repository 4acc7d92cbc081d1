#pragma once

namespace check {

enum class Severity { kError, kWarning };

/// "error" or "warning".
const char* NameOf(Severity severity);

/// What the checker looks for. Each rule is a constant beside its judge, has its place in `Rules`
/// and its entry in docs/check-rules.md.
struct Rule {
  const char* name;
  Severity severity;
  const char* summary;
};

}  // namespace check
