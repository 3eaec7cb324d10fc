#include "vat/postings/SeguitoFattura.h"

#include <algorithm>
#include <utility>

#include "core/sql/Criterio.h"
#include "core/values/Testo.h"
#include "duedates/schedules/CreaScadenze.h"
#include "vat/postings/DatiIva.h"
#include "vat/postings/RegistraIntraInterno.h"

namespace fenalto::vat {
namespace {

using ledger::Origine;

struct Conto : ContoDiParte {
  [[nodiscard]] bool E(const std::string& altraCfp, const std::string& altro) const {
    return UgualeTesto(cfp, altraCfp) && UgualeTesto(cod, altro);
  }
};

/// A head with what is needed to tell what it is.
struct Testa {
  ArticoloOrigine articolo;
  Data dt;
  Data dtFat;
  std::string nFat;
  std::string riva;
  std::int64_t nProt = 0;
  Origine origine = Origine::Manuale;
  Conto dare;
  Conto avere;
  std::string pagamento;
};

Testa LeggiTesta(const Rs& rs) {
  const auto testo = [&rs](const char* campo) { return rs.Fields(campo).Testo(); };
  Testa t;
  t.articolo = {static_cast<int>(rs.Fields("Anno").Intero()), rs.Fields("NumDoc").Intero()};
  t.dt = rs.Fields("Dt").Data();
  t.dtFat = rs.Fields("DtFat").Data();
  t.nFat = testo("NFat");
  t.riva = testo("Riva");
  t.nProt = rs.Fields("NProt").Intero();
  t.origine = static_cast<Origine>(rs.Fields("CREATOINAUTOMATICO").Intero());
  t.dare = {{testo("CFP"), testo("Conto")}};
  t.avere = {{testo("CfpA"), testo("ContoA")}};
  t.pagamento = testo("Pagamento");
  return t;
}

std::string DescrizioneParte(const std::vector<RigaIva>& righe) {
  const auto parte = std::ranges::find(righe, TipoRigaIva::Parte, &RigaIva::tipoRiga);
  return parte == righe.end() ? std::string() : parte->descrizione;
}

std::string Numero(const ArticoloOrigine& articolo) {
  return std::to_string(articolo.numDoc);
}

std::string CondizioneLegati(const ArticoloOrigine& documento) {
  return " from ZarticoliSeguito where " + sql::Criterio("AnnoOrigine", "=", documento.anno) +
         " and " + sql::Criterio("NumDocOrigine", "=", documento.numDoc) + " order by ID";
}

/// Finds the registrations that follow from a document: those tied to it; where there are none,
/// among those behind it that nothing ties to any, those that look like it.
class Ricerca {
 public:
  Ricerca(Ambiente& ambiente, Testa documento, bool reverseCharge)
      : ambiente_(ambiente),
        documento_(std::move(documento)),
        reverse_(reverseCharge),
        descrizione_(DescrizioneParte(Righe(documento_.articolo))),
        descrizioneIntra_(DescrizioneGiroIntra(documento_.nFat, documento_.dtFat)) {}

  std::vector<RegistrazioneSeguita> Esegui() {
    Archivio& tessarc = ambiente_.ArchivioDi("tessarc");
    // As they were written, whatever their number is now: a giro before what pays it.
    for (Rs rs = tessarc.Recordset("select *" + CondizioneLegati(documento_.articolo)); !rs.Eof();
         rs.MoveNext()) {
      VediLegata(LeggiTesta(rs));
    }
    if (trovate_.empty()) VediSimili(tessarc);
    std::ranges::stable_sort(trovate_, {},
                             [](const RegistrazioneSeguita& r) { return r.articolo.numDoc; });
    return std::move(trovate_);
  }

 private:
  void VediSimili(Archivio& tessarc) {
    for (Rs rs = tessarc.Recordset("select * from Articoli where " +
                                   sql::Criterio("Anno", "=", documento_.articolo.anno) + " and " +
                                   sql::Criterio("NumDoc", ">", documento_.articolo.numDoc) +
                                   " and " + sql::Criterio("Dt", "=", documento_.dt) +
                                   " and NumDocOrigine=0 order by NumDoc");
         !rs.Eof(); rs.MoveNext()) {
      const Testa testa = LeggiTesta(rs);
      // What comes after another document of the same kind, number and day follows from that.
      if (Gemella(testa)) break;
      Vedi(testa);
    }
  }

  std::vector<RigaIva> Righe(const ArticoloOrigine& articolo) {
    return LeggiRigheIva(ambiente_.ArchivioDi("tessarc"), articolo.anno, articolo.numDoc);
  }

  [[nodiscard]] bool StessaFattura(const Testa& t) const {
    return t.dtFat == documento_.dtFat && UgualeTesto(t.nFat, documento_.nFat);
  }

  [[nodiscard]] bool Gemella(const Testa& t) const {
    return UgualeTesto(t.riva, documento_.riva) && StessaFattura(t) &&
           documento_.dare.E(t.dare.cfp, t.dare.cod);
  }

  /// What it is follows from who wrote it: day, party and text may be the document's no more.
  void VediLegata(const Testa& t) {
    if (t.origine == Origine::ReverseCharge && !t.riva.empty()) return VediCopia(t);
    const auto righe = Righe(t.articolo);
    switch (t.origine) {
      case Origine::ReverseCharge:
        return VediGiroIntra(t, righe);
      case Origine::BollaDoganale:
        return VediGiroDogana(t, righe);
      case Origine::RitenutaAcconto:
      case Origine::GiroRitenuta:
        return Aggiungi(GenereSeguito::GiroRitenuta, t, righe, "giro ritenuta", Parte(t));
      case Origine::Pagamento:
        return giri_.empty() && !reverse_ ? VediPagamento(t, righe) : VediPagamentoGiro(t, righe);
      default:
        return;
    }
  }

  void VediGiroIntra(const Testa& t, const std::vector<RigaIva>& righe) {
    if (t.avere.cfp != "F") {
      return Aggiungi(GenereSeguito::GiroIndetraibile, t, righe,
                      "giro dell'iva indetraibile al costo");
    }
    giri_.push_back({t.avere, Testo(righe)});
    Aggiungi(GenereSeguito::GiroCosto, t, righe, "giro del costo al fornitore " + t.avere.cod);
    trovate_.back().fornitore = t.avere.cod;
  }
  void VediGiroDogana(const Testa& t, const std::vector<RigaIva>& righe) {
    giri_.push_back({t.avere, Testo(righe)});
    Aggiungi(GenereSeguito::GiroDogana, t, righe,
             "giro della bolla doganale al fornitore " + t.avere.cod, t.dare);
    trovate_.back().fornitore = t.avere.cod;
  }
  void VediPagamento(const Testa& t, const std::vector<RigaIva>& righe) {
    Aggiungi(GenereSeguito::Pagamento, t, righe, "pagamento", Parte(t));
  }
  void VediPagamentoGiro(const Testa& t, const std::vector<RigaIva>& righe) {
    Aggiungi(GenereSeguito::PagamentoGiro, t, righe, "pagamento del fornitore " + t.dare.cod);
  }

  static std::string Testo(const std::vector<RigaIva>& righe) {
    return righe.empty() ? std::string() : righe.front().descrizione;
  }
  /// The side that isn't an account.
  static const Conto& Parte(const Testa& t) { return t.dare.cfp == "P" ? t.avere : t.dare; }

  void Vedi(const Testa& t) {
    if (t.origine == Origine::ReverseCharge && !t.riva.empty()) {
      if (StessaFattura(t) && documento_.dare.E(t.dare.cfp, t.dare.cod)) VediCopia(t);
      return;
    }
    if (!t.riva.empty()) return;
    const auto righe = Righe(t.articolo);
    const std::string descrizione = Testo(righe);
    const bool suo = UgualeTesto(descrizione, descrizione_);
    const bool diIntra = reverse_ && UgualeTesto(descrizione, descrizioneIntra_);
    const bool dellaParte =
        documento_.dare.E(t.dare.cfp, t.dare.cod) || documento_.dare.E(t.avere.cfp, t.avere.cod);
    switch (t.origine) {
      case Origine::ReverseCharge:
        if (diIntra) VediGiroIntra(t, righe);
        return;
      case Origine::BollaDoganale:
        if (suo && dellaParte) VediGiroDogana(t, righe);
        return;
      case Origine::RitenutaAcconto:
        if (suo && dellaParte) {
          Aggiungi(GenereSeguito::GiroRitenuta, t, righe, "giro ritenuta", Parte(t));
        }
        return;
      case Origine::Pagamento:
        if (suo && dellaParte) return VediPagamento(t, righe);
        if (DiUnGiro(t, descrizione)) VediPagamentoGiro(t, righe);
        return;
      default:
        return;
    }
  }

  void VediCopia(const Testa& t) {
    Aggiungi(GenereSeguito::CopiaIntra, t, {},
             "registro iva " + t.riva + ", protocollo " + std::to_string(t.nProt), t.dare);
    const auto stampato =
        ambiente_
            .Max("UltProtSt", "UltProtStRegIva", {{"Anno", t.articolo.anno}, {"Riva", t.riva}},
                 ambiente_.ArchivioDi("tessarc"))
            .Intero();
    if (t.nProt <= stampato) trovate_.back().ferma = "già stampata sul registro iva";
  }

  [[nodiscard]] bool DiUnGiro(const Testa& t, const std::string& descrizione) const {
    return std::ranges::any_of(giri_, [&](const auto& giro) {
      return giro.first.E(t.dare.cfp, t.dare.cod) && UgualeTesto(giro.second, descrizione);
    });
  }

  void Aggiungi(GenereSeguito genere, const Testa& t, const std::vector<RigaIva>& righe,
                const std::string& cosa, const ContoDiParte& parte = {}) {
    RegistrazioneSeguita r;
    r.genere = genere;
    r.articolo = t.articolo;
    r.parte = parte;
    r.nome = "articolo n. " + Numero(t.articolo) + ": " + cosa;
    for (const RigaIva& riga : righe) {
      if (documento_.dare.E(riga.cfp, riga.conto)) r.dallaParte += riga.impoDare - riga.impoAvere;
    }
    trovate_.push_back(std::move(r));
  }

  Ambiente& ambiente_;
  Testa documento_;
  bool reverse_;
  std::string descrizione_;
  std::string descrizioneIntra_;
  std::vector<std::pair<Conto, std::string>> giri_;  ///< supplier and text of those found
  std::vector<RegistrazioneSeguita> trovate_;
};

/// Writes what followed from a document again, from the document as it stands now.
class Correzione {
 public:
  Correzione(Ambiente& ambiente, const ArticoloOrigine& documento, std::string pagamentoPrima,
             Importo daPagare, LogContabile& log)
      : ambiente_(ambiente),
        tessarc_(ambiente.ArchivioDi("tessarc")),
        pagamentoPrima_(std::move(pagamentoPrima)),
        daPagare_(daPagare),
        log_(log) {
    Rs testa = LeggiArticolo(ambiente, documento);
    testa_ = LeggiTesta(testa);
    const auto righe = LeggiRigheIva(tessarc_, documento.anno, documento.numDoc);
    descrizione_ = DescrizioneParte(righe);
    for (const RigaIva& riga : righe) {
      if (riga.tipoRiga == TipoRigaIva::Imponibile) imponibile_ += riga.imponibile;
    }
  }

  void Correggi(const RegistrazioneSeguita& r) {
    switch (r.genere) {
      case GenereSeguito::CopiaIntra:
        return Copia(r);
      case GenereSeguito::GiroCosto:
      case GenereSeguito::GiroDogana: {
        const bool dogana = r.genere == GenereSeguito::GiroDogana;
        giro_ = dogana ? imponibile_ : intra_ ? intra_->costo : imponibile_;
        descrizioneGiro_ = dogana ? descrizione_ : DescrizioneGiroIntra(testa_.nFat, testa_.dtFat);
        if (DueRighe(r, descrizioneGiro_, giro_)) Scadenze(r, *giro_);
        return;
      }
      case GenereSeguito::GiroIndetraibile:
        return Indetraibile(r);
      case GenereSeguito::GiroRitenuta:
        if (DueRighe(r, descrizione_, std::nullopt)) {
          log_.Riga("la ritenuta dell'articolo n. " + Numero(r.articolo) +
                    " ha l'importo di prima: controllarlo");
        }
        return;
      case GenereSeguito::Pagamento:
        return Pagamento(r);
      case GenereSeguito::PagamentoGiro:
        // Without a giro nobody knows what it pays.
        if (giro_) DueRighe(r, descrizioneGiro_, giro_);
        return;
    }
  }

  /// VAT that is deducted no more has no giro yet: it goes where that of the cost went.
  void Aggiungi(const std::vector<RegistrazioneSeguita>& seguito) {
    const auto costo =
        std::ranges::find(seguito, GenereSeguito::GiroCosto, &RegistrazioneSeguita::genere);
    if (!intra_ || costo == seguito.end()) return;
    const auto righe = LeggiRigheIva(tessarc_, costo->articolo.anno, costo->articolo.numDoc);
    if (righe.size() != 2) return;
    GiroFornitore giro;
    giro.articolo = giro.documento = testa_.articolo;
    giro.conto = righe[0].conto;
    giro.causale = righe[0].causale;
    giro.descrizione = DescrizioneGiroIntra(testa_.nFat, testa_.dtFat);
    giro.origine = Origine::ReverseCharge;
    for (const auto& [conto, importo] : intra_->indetraibile) {
      if (UgualeTesto(conto, giro.conto)) continue;
      ScriviGiroIndetraibile(ambiente_, giro, conto, importo, log_);
    }
  }

 private:
  void Copia(const RegistrazioneSeguita& r) {
    Rs copia = LeggiArticolo(ambiente_, r.articolo);
    const std::string riva = copia.Fields("Riva").Testo();
    tessarc_.Esegui("delete * from Movimenti where " + ChiaveArticolo(r.articolo));
    TestaCome(r);
    intra_ = CopiaRigheIntra(ambiente_, testa_.articolo, riva, r.articolo.numDoc);
    Corretta(r);
  }

  void Indetraibile(const RegistrazioneSeguita& r) {
    const auto righe = LeggiRigheIva(tessarc_, r.articolo.anno, r.articolo.numDoc);
    if (!intra_) return;
    if (righe.size() != 2) return intra_->indetraibile.clear();
    const auto resto = intra_->indetraibile.find(righe[1].conto);
    if (resto == intra_->indetraibile.end()) return Elimina(r);
    const Importo importo = resto->second;
    intra_->indetraibile.erase(resto);
    DueRighe(r, DescrizioneGiroIntra(testa_.nFat, testa_.dtFat), importo);
  }

  /// The code may be another now: its account and its causal, or none at all.
  void Pagamento(const RegistrazioneSeguita& r) {
    Rs codice = tessarc_.Recordset("select * from Pagamento where " +
                                   sql::Criterio("Cod", "=", testa_.pagamento));
    const bool subito = !codice.Eof() && !codice.Fields("Conto").Testo().empty() &&
                        !codice.Fields("Causale").Testo().empty();
    if (!subito) return Elimina(r);
    if (!DueRighe(r, descrizione_, daPagare_)) return;
    if (UgualeTesto(testa_.pagamento, pagamentoPrima_)) return;
    const std::string conto = sql::LetteraleSql(codice.Fields("Conto"));
    const std::string chiave = ChiaveArticolo(r.articolo);
    tessarc_.Esegui("update Movimenti set Causale=" + sql::LetteraleSql(codice.Fields("Causale")) +
                    " where " + chiave);
    struct Colonna {
      const char *tabella, *classe, *campo;
    };
    for (const auto& [tabella, classe, campo] : {Colonna{"Movimenti", "CFP", "Conto"},
                                                 {"Movimenti", "CFPControp", "ContoControp"},
                                                 {"Articoli", "CFP", "Conto"},
                                                 {"Articoli", "CfpA", "ContoA"}}) {
      std::string testo = std::string("update ") + tabella;
      testo += std::string(" set ") + campo;
      testo += "=" + conto;
      testo += " where " + chiave;
      testo += std::string(" and ") + classe;
      tessarc_.Esegui(testo + "='P'");
    }
  }

  /// Day, invoice and party of the document on a head; its rows take the day by themselves.
  void TestaCome(const RegistrazioneSeguita& r) {
    const std::string chiave = ChiaveArticolo(r.articolo);
    tessarc_.Esegui("update Articoli set " + sql::Criterio("Dt", "=", testa_.dt) + ", " +
                    sql::Criterio("DtFat", "=", testa_.dtFat) + ", " +
                    sql::Criterio("NFat", "=", testa_.nFat) + " where " + chiave);
    if (r.parte.cod.empty() || UgualeTesto(r.parte.cod, testa_.dare.cod)) return;
    for (const auto& [classe, campo] : {std::pair("CFP", "Conto"), {"CfpA", "ContoA"}}) {
      tessarc_.Esegui(std::string("update Articoli set ") +
                      sql::Criterio(campo, "=", testa_.dare.cod) + " where " + chiave + " and " +
                      sql::Criterio(classe, "=", r.parte.cfp) + " and " +
                      sql::Criterio(campo, "=", r.parte.cod));
    }
  }

  /// A registration of two rows with other day, text, party, and amount when there is one. False,
  /// with a notice, when it isn't as it was written.
  bool DueRighe(const RegistrazioneSeguita& r, const std::string& descrizione,
                std::optional<Importo> importo) {
    auto righe = LeggiRigheIva(tessarc_, r.articolo.anno, r.articolo.numDoc);
    const bool intatta = righe.size() == 2 && righe[0].impoDare == righe[1].impoAvere &&
                         righe[0].impoAvere == righe[1].impoDare;
    if (!intatta) {
      log_.avvisi.push_back(r.nome + "\nè stata cambiata a mano e resta com'è: controllarla.");
      return false;
    }
    TestaCome(r);
    tessarc_.Esegui("delete * from Movimenti where " + ChiaveArticolo(r.articolo));
    const bool primaInDare = !righe[0].impoDare.Zero();
    for (RigaIva& riga : righe) {
      riga.descrizione = descrizione;
      const bool inDare = (&riga == &righe.front()) == primaInDare;
      if (importo) (inDare ? riga.impoDare : riga.impoAvere) = *importo;
      for (auto& [cfp, conto] : {std::pair<const std::string&, std::string&>(riga.cfp, riga.conto),
                                 {riga.cfpControp, riga.contoControp}}) {
        if (!conto.empty() && UgualeTesto(cfp, r.parte.cfp) && UgualeTesto(conto, r.parte.cod)) {
          conto = testa_.dare.cod;
        }
      }
      ScriviRigaIva(tessarc_, riga);
    }
    Corretta(r);
    return true;
  }

  /// Due dates of a giro's supplier, by the payment code that they bear.
  void Scadenze(const RegistrazioneSeguita& r, Importo importo) {
    Archivio& scadenzario = ambiente_.ArchivioDi("scadenzario");
    Rs prima = scadenzario.Recordset("select top 1 * from Scadenze where " +
                                     sql::Criterio("Anno", "=", r.articolo.anno) + " and " +
                                     sql::Criterio("Articolo", "=", r.articolo.numDoc));
    if (prima.Eof()) return;
    duedates::RichiestaScadenze nuove;
    nuove.cfp = prima.Fields("CFP").Testo();
    nuove.conto = prima.Fields("Conto").Testo();
    nuove.codPag = prima.Fields("Pagamento").Testo();
    nuove.riva = prima.Fields("Riva").Testo();
    nuove.numProt = prima.Fields("NProt").Intero();
    nuove.programma = prima.Fields("Programma").Testo();
    prima.mClose();
    nuove.data = testa_.dtFat.Nulla() ? testa_.dt : testa_.dtFat;
    nuove.importo = importo;
    nuove.descrizione = descrizioneGiro_;
    nuove.dataFat = testa_.dtFat;
    nuove.numFat = testa_.nFat;
    nuove.anno = r.articolo.anno;
    nuove.articolo = r.articolo.numDoc;
    if (duedates::EliminaScadenzeFattura(ambiente_, nuove.anno, nuove.articolo, log_.testo)) {
      duedates::CreaScadenze(ambiente_, nuove, log_.testo, log_.avvisi);
    }
  }

  void Elimina(const RegistrazioneSeguita& r) { EliminaSeguito(ambiente_, {r}, log_); }

  void Corretta(const RegistrazioneSeguita& r) { log_.Riga("CORRETTA anche " + r.nome); }

  Ambiente& ambiente_;
  Archivio& tessarc_;
  std::string pagamentoPrima_;
  Importo daPagare_;
  LogContabile& log_;
  Testa testa_;
  std::string descrizione_;
  Importo imponibile_;
  std::optional<RigheIntra> intra_;
  std::optional<Importo> giro_;
  std::string descrizioneGiro_;
};

}  // namespace

std::vector<RegistrazioneSeguita> TrovaSeguito(Ambiente& ambiente,
                                               const ArticoloOrigine& documento) {
  Rs rs = LeggiArticolo(ambiente, documento);
  if (rs.Eof()) return {};
  Testa testa = LeggiTesta(rs);
  rs.mClose();
  const auto tipo = NzStr(ambiente.Cerca("tessarc", "RegistriIva", {{"Cod", testa.riva}}, "Tipo"));
  // The second half of a pair follows from the first.
  if (testa.riva.empty() || tipo == "05") return {};
  return Ricerca(ambiente, std::move(testa), tipo == "04").Esegui();
}

std::vector<ArticoloOrigine> LegatiA(Ambiente& ambiente, const ArticoloOrigine& documento) {
  std::vector<ArticoloOrigine> legati;
  for (Rs rs = ambiente.ArchivioDi("tessarc").Recordset("select Anno, NumDoc" +
                                                        CondizioneLegati(documento));
       !rs.Eof(); rs.MoveNext()) {
    legati.push_back({static_cast<int>(rs.Fields(0).Intero()), rs.Fields(1).Intero()});
  }
  return legati;
}

void LegaA(Ambiente& ambiente, const std::vector<ArticoloOrigine>& legati,
           const ArticoloOrigine& documento) {
  for (const ArticoloOrigine& articolo : legati) {
    ambiente.ArchivioDi("tessarc").Esegui("update Articoli set " +
                                          sql::Criterio("AnnoOrigine", "=", documento.anno) + ", " +
                                          sql::Criterio("NumDocOrigine", "=", documento.numDoc) +
                                          " where " + ChiaveArticolo(articolo));
  }
}

void CorreggiSeguito(Ambiente& ambiente, const std::vector<RegistrazioneSeguita>& seguito,
                     const ArticoloOrigine& documento, const std::string& pagamentoPrima,
                     Importo daPagare, LogContabile& log) {
  // The user has seen which they are: from now on there is nothing to guess.
  std::vector<ArticoloOrigine> legati;
  for (const RegistrazioneSeguita& r : seguito) legati.push_back(r.articolo);
  LegaA(ambiente, legati, documento);
  Correzione correzione(ambiente, documento, pagamentoPrima, daPagare, log);
  // The second half first, and a giro before what pays it: the others stand on them.
  auto ordinato = seguito;
  std::ranges::stable_sort(ordinato, {}, &RegistrazioneSeguita::genere);
  for (const RegistrazioneSeguita& r : ordinato) {
    if (r.ferma.empty()) correzione.Correggi(r);
  }
  correzione.Aggiungi(seguito);
}

void EliminaSeguito(Ambiente& ambiente, const std::vector<RegistrazioneSeguita>& seguito,
                    LogContabile& log) {
  Archivio& tessarc = ambiente.ArchivioDi("tessarc");
  for (const RegistrazioneSeguita& r : seguito) {
    if (!r.ferma.empty()) continue;
    tessarc.Esegui("delete * from Movimenti where " + ChiaveArticolo(r.articolo));
    tessarc.Esegui("delete * from Articoli where " + ChiaveArticolo(r.articolo));
    log.Riga("ELIMINATA anche " + r.nome);
    duedates::EliminaScadenzeFattura(ambiente, r.articolo.anno, r.articolo.numDoc, log.testo);
  }
}

}  // namespace fenalto::vat
