// Text to syntax tree, by recursive descent. A refusal travels as Rifiuto.
#pragma once

#include <string_view>
#include <vector>

#include "core/sql/Albero.h"
#include "core/sql/Lessico.h"

namespace fenalto::sql {

class Parser {
 public:
  /// `incorpora`: literals are written into the SQL (stored queries), not bound.
  Parser(std::string_view testo, bool incorpora);

  /// A whole statement, or a bare table or query name.
  Albero LeggiIstruzione();
  /// A condition alone.
  EsprPtr LeggiCondizione(Albero& albero);

 private:
  // Parser.cpp: statements and FROM.
  void LeggiSelezione(Albero& albero);
  void LeggiCancellazione(Albero& albero);
  void LeggiAggiornamento(Albero& albero);
  void LeggiInserimento(Albero& albero);
  void LeggiTabella(Albero& albero);
  std::unique_ptr<Query> LeggiQuery();
  std::unique_ptr<Selezione> LeggiRamo();
  void LeggiVoci(Selezione& selezione);
  Voce LeggiVoce();
  std::vector<VoceOrdine> LeggiOrdine();
  std::unique_ptr<Da> LeggiDa();
  std::unique_ptr<Da> LeggiGiunzioni();
  std::unique_ptr<Da> LeggiFonte();
  bool LeggiTipoGiunzione(TipoGiunzione& tipo, bool& scambia);
  std::string_view LeggiAlias();

  // ParserEspressioni.cpp, weakest operators first.
  EsprPtr LeggiEspr();
  EsprPtr LeggiCatena(GenereEspr genere);
  EsprPtr LeggiNon();
  EsprPtr LeggiConfronto();
  EsprPtr LeggiCoda(EsprPtr sinistra);
  EsprPtr LeggiIn(EsprPtr sinistra, std::size_t posizione);
  EsprPtr LeggiNulloONo(EsprPtr sinistra, std::size_t posizione);
  EsprPtr LeggiAritmetica(int livello);
  EsprPtr LeggiUnario();
  EsprPtr LeggiPrimario();
  EsprPtr LeggiParentesi();
  EsprPtr LeggiNomeOChiamata();
  EsprPtr LeggiChiamata(const Segno& nome);
  EsprPtr LeggiLetterale();
  char OperatoreAritmetico(int livello) const;

  // Words.
  [[nodiscard]] const Segno& Qui() const { return segni_[i_]; }
  [[nodiscard]] const Segno& Dopo(std::size_t n = 1) const;
  void Avanza() {
    if (i_ + 1 < segni_.size()) ++i_;
  }
  [[nodiscard]] bool E(char simbolo) const {
    return Qui().genere == GenereSegno::Simbolo && Qui().simbolo == simbolo;
  }
  [[nodiscard]] bool E(std::string_view parola) const { return EParola(Qui(), parola); }
  static bool EParola(const Segno& segno, std::string_view parola);
  bool Prendi(char simbolo);
  bool Prendi(std::string_view parola);
  void Pretendi(char simbolo);
  void Pretendi(std::string_view parola);
  /// A name, bracketed or not a keyword.
  std::string_view PretendiNome(const char* cosa);
  [[nodiscard]] bool ENome() const;
  void PretendiFine();
  [[noreturn]] void Inatteso(const char* atteso) const;

  /// Counts nesting while it lives.
  class Livello {
   public:
    explicit Livello(Parser& parser);
    ~Livello() { --parser_.livello_; }
    Livello(const Livello&) = delete;
    Livello& operator=(const Livello&) = delete;

   private:
    Parser& parser_;
  };

  std::vector<Segno> segni_;
  std::vector<int> indici_;  ///< index among the literals, of each word
  std::size_t i_ = 0;
  int livello_ = 0;
  bool incorpora_;
  Albero* albero_ = nullptr;
};

}  // namespace fenalto::sql
