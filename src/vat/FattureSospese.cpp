#include "vat/FattureSospese.h"

#include <algorithm>
#include <array>
#include <exception>
#include <optional>
#include <utility>

#include "core/sql/Criterio.h"
#include "core/values/Testo.h"
#include "ledger/ControlliData.h"
#include "vat/DatiIva.h"
#include "vat/PeriodoIva.h"

namespace fenalto {

namespace {

constexpr std::string_view kTipoSospese = "06";

std::string ChiaveArticolo(const ArticoloOrigine& fattura) {
  return Criterio("Anno", "=", fattura.anno) + " and " + Criterio("NumDoc", "=", fattura.numDoc);
}

/// An invoice as its day of collection is changed.
struct Fattura {
  ArticoloOrigine articolo;
  std::int64_t id = 0;
  Data dt;
  Data dtFat;
  std::string nFat;
  std::string riva;
  std::int64_t nProt = 0;
  std::string cfp;
  bool acquisto = false;
  Data incasso;
  std::string contoIva;  ///< the account its VAT was posted on
  std::string causaleIva;
  Importo iva;  ///< on that account, debit above zero

  [[nodiscard]] std::string Nome() const {
    return riva + "/" + std::to_string(nProt) + " del " + dt.Testo();
  }
  /// By which its storno is found again.
  [[nodiscard]] std::string DescrizioneStorno() const {
    return "Storno IVA differita prot. " + Nome();
  }
};

std::optional<Fattura> Leggi(Ambiente& ambiente, const ArticoloOrigine& articolo) {
  Archivio& tessarc = ambiente.ArchivioDi("tessarc");
  Rs r = tessarc.Recordset("select * from Articoli where " + ChiaveArticolo(articolo));
  if (r.Eof()) return std::nullopt;
  Fattura f;
  f.articolo = articolo;
  f.id = r.Fields("ID").Intero();
  f.dt = r.Fields("Dt").Data();
  f.dtFat = r.Fields("DtFat").Data();
  f.nFat = r.Fields("NFat").Testo();
  f.riva = r.Fields("Riva").Testo();
  f.nProt = r.Fields("NProt").Intero();
  f.cfp = r.Fields("CFP").Testo();
  f.incasso = r.Fields("DtIncasso").Data();
  const auto tipo = NzStr(ambiente.Cerca("tessarc", "RegistriIva", {{"Cod", f.riva}}, "Tipo"));
  if (!r.Fields("Ep").Booleano() && tipo != kTipoSospese) return std::nullopt;
  f.acquisto = tipo == "03";
  for (const RigaIva& riga : LeggiRigheIva(tessarc, articolo.anno, articolo.numDoc)) {
    if (riga.tipoRiga != TipoRigaIva::Iva) continue;
    f.contoIva = riga.conto;
    f.causaleIva = riga.causale;
    f.iva += riga.impoDare - riga.impoAvere;
  }
  return f;
}

/// Code and account of the register on which collected invoices stand.
struct RegistroIncassate {
  std::string cod;
  std::string conto;
};

RegistroIncassate CercaIncassate(Ambiente& ambiente, bool acquisto) {
  Rs r = ambiente.ArchivioDi("tessarc").Recordset("select * from RegistriIva where " +
                                                  Criterio("Tipo", "=", acquisto ? "08A" : "08") +
                                                  " order by Cod");
  if (r.Eof()) return {};
  return {r.Fields("Cod").Testo(), r.Fields("Conto").Testo()};
}

/// Why no date may be set or taken off in the period of that day; empty when it may.
std::string PeriodoChiuso(Ambiente& ambiente, Data data) {
  if (data.Nulla()) return {};
  const std::string periodo = ChiavePeriodo(data, IvaTrimestrale(ambiente, data.Anno()));
  if (!ambiente.Esiste("tessarc", "ChiusureIva",
                       {{"Anno", data.Anno()}, {"MESETRIMESTRE", periodo}})) {
    return {};
  }
  return "La data di incasso " + data.Testo() + " cade nel periodo " + periodo + "/" +
         std::to_string(data.Anno()) +
         ", la cui liquidazione IVA è già stampata in definitiva.\nLa data non si può cambiare: "
         "scegliere una data di un periodo ancora aperto.";
}

/// The whole change of one invoice, under the numbering lock.
class Cambio {
 public:
  Cambio(Ambiente& ambiente, Fattura fattura, Data incasso)
      : ambiente_(ambiente),
        f_(std::move(fattura)),
        incasso_(incasso),
        incassate_(CercaIncassate(ambiente, f_.acquisto)) {
    // Without VAT, or on the same account, there is nothing to be moved.
    aParte_ =
        !f_.iva.Zero() && !incassate_.conto.empty() && !UgualeTesto(f_.contoIva, incassate_.conto);
  }

  /// What stands against it; empty when nothing does.
  [[nodiscard]] std::string Rifiuto() {
    for (const Data data : {f_.incasso, incasso_}) {
      if (std::string chiuso = PeriodoChiuso(ambiente_, data); !chiuso.empty()) return chiuso;
    }
    CercaStorno();
    if (storno_ && SulGiornale(f_.incasso)) {
      return "Lo storno dell'IVA, articolo n. " + std::to_string(storno_->numDoc) + " del " +
             f_.incasso.Testo() + ", è già sul libro giornale: la data non si può cambiare.";
    }
    return incasso_.Nulla() ? "" : RifiutoDataNuova();
  }

  /// The number of the storno written, 0 for none.
  std::int64_t Scrivi() {
    Archivio& tessarc = ambiente_.ArchivioDi("tessarc");
    // On a register of type 06 all invoices are deferred, marked or not.
    tessarc.Esegui("update Articoli set Ep=True, DtIncasso=" + LetteraleSql(incasso_) + " where " +
                   Criterio("ID", "=", f_.id));
    if (storno_) {
      tessarc.Esegui("delete * from Movimenti where " + ChiaveArticolo(*storno_));
      tessarc.Esegui("delete * from Articoli where " + ChiaveArticolo(*storno_));
    }
    return aParte_ && !incasso_.Nulla() ? ScriviStorno() : 0;
  }

  [[nodiscard]] bool ConStorno() const { return aParte_; }

 private:
  [[nodiscard]] bool SulGiornale(Data data) {
    return data <=
           ambiente_.Max("dt", "UltimaDataLibro", {}, ambiente_.ArchivioDi("tessarc")).Data();
  }

  [[nodiscard]] std::string RifiutoDataNuova() {
    if (incasso_ < f_.dt) {
      return "La data di incasso " + incasso_.Testo() +
             " viene prima della registrazione della fattura " + f_.Nome() + ": correggerla.";
    }
    const auto& anni = ambiente_.Anni();
    if (std::find(anni.begin(), anni.end(), incasso_.Anno()) == anni.end()) {
      return "La data di incasso " + incasso_.Testo() +
             " è in un anno che la ditta non ha: "
             "correggerla, o creare prima l'anno.";
    }
    if (incassate_.cod.empty()) {
      return std::string("è necessario creare un registro iva di tipo ") +
             (f_.acquisto ? "08A" : "08");
    }
    return {};
  }

  void CercaStorno() {
    if (f_.incasso.Nulla()) return;
    Archivio& tessarc = ambiente_.ArchivioDi("tessarc");
    const std::string descrizione = f_.DescrizioneStorno();
    for (Rs r = tessarc.Recordset(
             "select NumDoc from Articoli where " + Criterio("Anno", "=", f_.incasso.Anno()) +
             " and " + Criterio("Dt", "=", f_.incasso) + " and " +
             Criterio("CREATOINAUTOMATICO", "=", static_cast<int>(Origine::StornoSospesa)));
         !r.Eof(); r.MoveNext()) {
      const ArticoloOrigine trovato{f_.incasso.Anno(), r.Fields("NumDoc").Intero()};
      const auto righe = LeggiRigheIva(tessarc, trovato.anno, trovato.numDoc);
      if (!righe.empty() && righe.front().descrizione == descrizione) storno_ = trovato;
    }
  }

  std::int64_t ScriviStorno() {
    RegistrazioneDueRighe r;
    r.anno = incasso_.Anno();
    r.dt = incasso_;
    r.causale = Rifila(ambiente_.Config("CausaleErario"));
    if (r.causale.empty()) r.causale = f_.causaleIva;
    r.descrizione = f_.DescrizioneStorno();
    r.cfp = r.cfpA = r.testaCfp = r.testaCfpA = "P";
    r.conto = f_.contoIva;
    r.contoA = incassate_.conto;
    // The side across from that of the invoice clears its account.
    (f_.iva.Negativo() ? r.dare : r.avere) = f_.iva.Assoluto();
    r.testaConto = f_.iva.Negativo() ? r.conto : r.contoA;
    r.testaContoA = f_.iva.Negativo() ? r.contoA : r.conto;
    r.origine = Origine::StornoSospesa;
    r.dtFat = f_.dtFat;
    r.nFat = f_.nFat;
    return ScriviDueRighe(ambiente_, r);
  }

  Ambiente& ambiente_;
  Fattura f_;
  Data incasso_;
  RegistroIncassate incassate_;
  bool aParte_ = false;
  std::optional<ArticoloOrigine> storno_;
};

/// What came of a change: why it was refused, or the storno's number.
struct Scritto {
  std::string rifiuto;
  std::int64_t storno = 0;
};

/// Under the numbering lock, so that no settlement is stored between the checks and the write.
Scritto ScriviCambio(Ambiente& ambiente, const ArticoloOrigine& articolo, Data incasso) {
  // A window that has the invoice in edit would write the old day again.
  const auto preso = ambiente.Basi().Blocchi().Record(
      "ARTICOLI", std::to_string(articolo.anno) + "|" + std::to_string(articolo.numDoc));
  const auto letta = Leggi(ambiente, articolo);
  if (!letta) {
    return {"La fattura non c'è più o non è più in sospensione IVA: rileggere l'elenco."};
  }
  if (!preso) {
    return {"La fattura " + letta->Nome() + " è in modifica " + preso.Errore().Descrizione() +
            ": riprovare quando sarà libera."};
  }
  Cambio cambio(ambiente, *letta, incasso);
  if (std::string rifiuto = cambio.Rifiuto(); !rifiuto.empty()) return {std::move(rifiuto)};
  Transazione transazione(ambiente.Basi(), Transazione::Ambito::Tessarc);
  const std::int64_t storno = cambio.Scrivi();
  transazione.Conferma();
  return {{}, storno};
}

std::string CondizioneSospese(Ambiente& ambiente) {
  std::string condizione = "Articoli.Ep=True";
  for (Rs r = ambiente.ArchivioDi("tessarc").Recordset("select Cod from RegistriIva where " +
                                                       Criterio("Tipo", "=", kTipoSospese));
       !r.Eof(); r.MoveNext()) {
    condizione += " or " + Criterio("Articoli.Riva", "=", r.Fields("Cod"));
  }
  return "(" + condizione + ")";
}

}  // namespace

bool FattureSospese::Usate(Ambiente& ambiente) {
  return std::ranges::any_of(std::array{"06", "08", "08A"}, [&](const char* tipo) {
    return ambiente.Esiste("tessarc", "RegistriIva", {{"Tipo", tipo}});
  });
}

std::vector<std::pair<std::string, std::string>> FattureSospese::Registri() {
  std::vector<std::pair<std::string, std::string>> registri;
  for (Rs r = ambiente_.ArchivioDi("tessarc").Recordset(
           "select Cod, Descrizione from RegistriIva where Tipo='01' or Tipo='03' or Tipo='06' "
           "order by Cod");
       !r.Eof(); r.MoveNext()) {
    registri.emplace_back(r.Fields(0).Testo(), r.Fields(1).Testo());
  }
  return registri;
}

std::vector<FatturaSospesa> FattureSospese::Elenco(const FiltroSospese& filtro) {
  std::string sql = "select Articoli.* from Articoli where " + CondizioneSospese(ambiente_);
  if (!filtro.riva.empty()) sql += " and " + Criterio("Articoli.Riva", "=", filtro.riva);
  if (!filtro.da.Nulla()) sql += " and " + Criterio("Articoli.Dt", ">=", filtro.da);
  if (!filtro.a.Nulla()) sql += " and " + Criterio("Articoli.Dt", "<=", filtro.a);
  if (filtro.stato != StatoSospese::Tutte) {
    sql += " and " + Criterio("Articoli.DtIncasso",
                              filtro.stato == StatoSospese::Aperte ? "=" : "<>", Data());
  }
  Archivio& tessarc = ambiente_.ArchivioDi("tessarc");
  const std::string cercata = PerRicerca(Rifila(filtro.parte));
  std::vector<FatturaSospesa> elenco;
  for (Rs r = tessarc.Recordset(sql + " order by Articoli.Dt, Articoli.NumDoc"); !r.Eof();
       r.MoveNext()) {
    FatturaSospesa f;
    f.cfp = r.Fields("CFP").Testo();
    f.conto = r.Fields("Conto").Testo();
    f.nome = NzStr(ambiente_.Cerca("tessarc", "ContiClientiFornitori",
                                   {{"CFP", f.cfp}, {"Cod", f.conto}}, "Descrizione"));
    if (!cercata.empty() && PerRicerca(f.conto) != cercata &&
        PerRicerca(f.nome).find(cercata) == std::string::npos) {
      continue;
    }
    f.anno = static_cast<int>(r.Fields("Anno").Intero());
    f.numDoc = r.Fields("NumDoc").Intero();
    f.riva = r.Fields("Riva").Testo();
    f.nProt = r.Fields("NProt").Intero();
    f.dt = r.Fields("Dt").Data();
    f.dtFat = r.Fields("DtFat").Data();
    f.nFat = r.Fields("NFat").Testo();
    f.dtIncasso = r.Fields("DtIncasso").Data();
    for (const RigaIva& riga : LeggiRigheIva(tessarc, f.anno, f.numDoc)) {
      if (riga.tipoRiga != TipoRigaIva::Imponibile) continue;
      f.imponibile += riga.imponibile;
      f.iva += riga.iva;
    }
    elenco.push_back(std::move(f));
  }
  return elenco;
}

bool FattureSospese::Imposta(const ArticoloOrigine& fattura, Data incasso) {
  if (incasso.Nulla()) {
    ambiente_.Dialogo().Messaggio("impostare la data di incasso", Icona::Avviso);
    return false;
  }
  return Cambia(fattura, incasso);
}

bool FattureSospese::Annulla(const ArticoloOrigine& fattura) {
  return Cambia(fattura, {});
}

bool FattureSospese::Cambia(const ArticoloOrigine& fattura, Data incasso) {
  Dialoghi& dialogo = ambiente_.Dialogo();
  Scritto scritto;
  try {
    const auto vista = Leggi(ambiente_, fattura);
    if (vista && vista->incasso == incasso) return false;
    if (vista && !incasso.Nulla() && Cambio(ambiente_, *vista, incasso).ConStorno()) {
      ControlloDataGiornale(ambiente_, incasso);
    }
    const Blocco numerazione = ambiente_.BloccaTabella("ARTICOLI", true);
    if (!numerazione.Tenuto()) return false;
    scritto = ScriviCambio(ambiente_, fattura, incasso);
  } catch (const std::exception& errore) {
    dialogo.Messaggio(std::string("modifica della data di incasso non riuscita: ") + errore.what() +
                          "\nNon è stato scritto nulla, si può riprovare.",
                      Icona::Errore);
    return false;
  }
  if (!scritto.rifiuto.empty()) {
    dialogo.Messaggio(scritto.rifiuto, Icona::Avviso);
    return false;
  }
  if (scritto.storno != 0) {
    ambiente_.AvvisoNumero("Storno dell'IVA differita: ARTICOLO CONTABILE", scritto.storno,
                           "annotare il numero");
  }
  return true;
}

}  // namespace fenalto
