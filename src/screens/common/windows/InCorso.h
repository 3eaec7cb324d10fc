// A flag of work under way, for windows whose long readings let events through.
#pragma once

namespace fenalto::screens {

/// Sets the flag while in scope.
class InCorso {
 public:
  explicit InCorso(bool& segno) : segno_(segno) { segno_ = true; }
  ~InCorso() { segno_ = false; }
  InCorso(const InCorso&) = delete;
  InCorso& operator=(const InCorso&) = delete;

 private:
  bool& segno_;
};

}  // namespace fenalto::screens
