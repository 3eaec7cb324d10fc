#include "core/store/engine/sqlite/DialettoSqlite.h"

namespace fenalto::engine::sqlite {

namespace {

std::string TraSegni(std::string_view testo, char segno) {
  std::string fuori(1, segno);
  for (const char c : testo) {
    if (c == segno) fuori += segno;
    fuori += c;
  }
  return fuori += segno;
}

class Dialetto final : public sql::Dialetto {
 public:
  using Fn = sql::Fn;
  using Aggregazione = sql::Aggregazione;

  [[nodiscard]] std::string Nome(std::string_view nome) const override {
    return TraSegni(nome, '"');
  }
  [[nodiscard]] std::string_view Riga() const override { return "rowid"; }
  void Parametro(std::string& sql, std::size_t numero) const override {
    sql += '?';
    sql += std::to_string(numero);
  }
  [[nodiscard]] std::string Testo(std::string_view testo) const override {
    return TraSegni(testo, '\'');
  }
  /// A whole real needs its point, or the engine divides as with whole numbers.
  [[nodiscard]] std::string Reale(const std::string& cifre) const override {
    return cifre.find('.') == std::string::npos ? cifre + ".0" : cifre;
  }

  [[nodiscard]] std::string_view Collazione() const override { return " COLLATE FENALTO"; }
  [[nodiscard]] std::string_view Verso(bool discendente) const override {
    return discendente ? " DESC" : "";
  }
  [[nodiscard]] Scrittura Costante() const override { return {"ifnull(", "", ",NULL)"}; }
  [[nodiscard]] std::string Primi(std::int64_t righe) const override {
    return " LIMIT " + std::to_string(righe);
  }

  /// The engine has no type of its own for truth: conditions give 0 or 1.
  [[nodiscard]] Scrittura Condizione() const override { return {}; }
  [[nodiscard]] Scrittura ValoreLogico() const override { return {}; }

  [[nodiscard]] std::optional<Scrittura> Operatore(Fn funzione) const override {
    switch (funzione) {
      case Fn::RealeDaImporto:
        return Scrittura{"(", "", "/10000.0)"};
      case Fn::Diecimila:
        return Scrittura{"(", "", "*10000)"};
      case Fn::NonZero:
        return Scrittura{"(", "", "<>0)"};
      case Fn::Unisci:
      case Fn::SommaTesti:
        return Scrittura{"(", "||", ")"};
      case Fn::TestoIntero:
        return Scrittura{"CAST(", "", " AS TEXT)"};
      case Fn::SeNullo:
        return Scrittura{"ifnull(", ",", ")"};
      default:
        return std::nullopt;
    }
  }

  [[nodiscard]] Scrittura Aggregato(Aggregazione aggregazione, Tipo tipo) const override {
    switch (aggregazione) {
      case Aggregazione::Conta:
        return {"count(", "", ")"};
      case Aggregazione::Somma:
        return {"sum(", "", ")"};
      case Aggregazione::Media:
        return {tipo == Tipo::Importo ? "fen_media(" : "avg(", "", ")"};
      case Aggregazione::Minimo:
        return {"min(", "", ")"};
      case Aggregazione::Massimo:
        return {"max(", "", ")"};
      case Aggregazione::Primo:
        return {"fen_primo(", "", ")"};
      case Aggregazione::Ultimo:
        return {"fen_ultimo(", "", ")"};
    }
    return {};
  }

  /// The engine's own limit is a million bytes.
  [[nodiscard]] std::size_t LunghezzaMassima() const override { return 900'000; }
  [[nodiscard]] std::size_t ParametriMassimi() const override { return 32'000; }
};

}  // namespace

const sql::Dialetto& DialettoSqlite() {
  static const Dialetto kDialetto;
  return kDialetto;
}

}  // namespace fenalto::engine::sqlite
