// The keys of a settings file, ready to be read many times: what FileIni::Valore answers, found
// without walking the text.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "core/session/FileIni.h"
#include "core/values/Testo.h"

namespace fenalto {

class IndiceIni {
 public:
  IndiceIni() = default;
  explicit IndiceIni(const FileIni& file);
  /// As FileIni::Valore.
  [[nodiscard]] const std::string& Valore(std::string_view sezione, std::string_view chiave) const;

 private:
  struct Impronta {
    using is_transparent = void;
    std::size_t operator()(std::string_view testo) const noexcept { return HashTesto(testo); }
  };
  struct Uguale {
    using is_transparent = void;
    bool operator()(std::string_view a, std::string_view b) const noexcept {
      return UgualeTesto(a, b);
    }
  };
  struct Sezione {
    std::string nome;
    std::unordered_map<std::string, std::string, Impronta, Uguale> chiavi;
  };
  std::vector<Sezione> sezioni_;
};

}  // namespace fenalto
