#include "duedates/schedules/Scadenza.h"

#include <algorithm>
#include <cctype>

#include "core/sql/Criterio.h"
#include "core/values/Aritmetica.h"
#include "core/values/FormatoImporto.h"
#include "core/values/Testo.h"

namespace fenalto::duedates {
namespace {

Rs RigaNumero(Ambiente& ambiente, std::int64_t numero) {
  return ambiente.ArchivioDi("scadenzario")
      .Recordset("SELECT * FROM SCADENZE WHERE " + sql::Criterio("Numero", "=", numero));
}

void Aggiungi(std::string& elenco, const std::string& campo, const std::string& prima,
              const std::string& ora) {
  if (prima == ora) return;
  elenco += "\n" + campo + ": era " + (prima.empty() ? "vuoto" : prima) + ", ora " +
            (ora.empty() ? "vuoto" : ora);
}

std::string Differenze(const Scadenza& prima, const Scadenza& ora) {
  const auto importo = [](Importo valore) { return ScriviImporto(valore, kDecimaliScadenza); };
  std::string elenco;
  Aggiungi(elenco, "cliente/fornitore", prima.cfp + " " + prima.conto, ora.cfp + " " + ora.conto);
  Aggiungi(elenco, "data scadenza", prima.dt.Testo(), ora.dt.Testo());
  Aggiungi(elenco, "importo", importo(prima.importoE), importo(ora.importoE));
  Aggiungi(elenco, "pagato", importo(prima.importoPagatoE), importo(ora.importoPagatoE));
  Aggiungi(elenco, "tipo", prima.tipo, ora.tipo);
  Aggiungi(elenco, "stato", prima.stato, ora.stato);
  Aggiungi(elenco, "fattura", prima.nFat, ora.nFat);
  Aggiungi(elenco, "data fattura", prima.dtFat.Testo(), ora.dtFat.Testo());
  Aggiungi(elenco, "descrizione", prima.descrizione, ora.descrizione);
  Aggiungi(elenco, "pagamento", prima.pagamento, ora.pagamento);
  Aggiungi(elenco, "registrazione", std::to_string(prima.articolo), std::to_string(ora.articolo));
  return elenco;
}

}  // namespace

bool StatoValido(const std::string& stato) {
  return stato.size() == 2 && std::ranges::all_of(stato, [](char c) {
           return std::isdigit(static_cast<unsigned char>(c)) != 0;
         });
}

std::string CondizioneAperta() {
  return sql::Criterio("SCADENZE.STATO", "<", kStatoPagata);
}

bool Scadenza::Aperta() const {
  return ConfrontaTesto(stato, kStatoPagata) < 0;
}

Scadenza ScadenzaDi(const Rs& riga) {
  Scadenza s;
  s.numero = riga.Fields("Numero").Intero();
  s.cfp = riga.Fields("CFP").Testo();
  s.conto = riga.Fields("Conto").Testo();
  s.dt = riga.Fields("Dt").Data();
  s.tipo = riga.Fields("Tipo").Testo();
  s.stato = riga.Fields("Stato").Testo();
  s.anno = static_cast<int>(riga.Fields("Anno").Intero());
  s.articolo = riga.Fields("Articolo").Intero();
  s.riva = riga.Fields("Riva").Testo();
  s.nProt = riga.Fields("NProt").Intero();
  s.nFat = riga.Fields("NFat").Testo();
  s.dtFat = riga.Fields("DtFat").Data();
  s.importoE = riga.Fields("ImportoE").Importo();
  s.importoPagatoE = riga.Fields("ImportoPagatoE").Importo();
  s.descrizione = riga.Fields("Descrizione").Testo();
  s.pagamento = riga.Fields("Pagamento").Testo();
  s.anticipo = riga.Fields("anticipo").Booleano();
  return s;
}

std::optional<Scadenza> LeggiScadenza(Ambiente& ambiente, std::int64_t numero) {
  Rs riga = RigaNumero(ambiente, numero);
  if (riga.Eof()) return std::nullopt;
  return ScadenzaDi(riga);
}

std::int64_t ProssimoNumeroScadenza(Ambiente& ambiente) {
  return ambiente.Max("Numero", "Scadenze", {}, ambiente.ArchivioDi("scadenzario")).Intero() + 1;
}

std::string NomeScadenza(Ambiente& ambiente, const Scadenza& s) {
  const std::string nome = NomeParte(ambiente, s.cfp, s.conto);
  std::string testo = "scadenza n. " + std::to_string(s.numero) + " del " + s.dt.Testo() + " di " +
                      (nome.empty() ? s.cfp + " " + s.conto : nome);
  if (!s.nFat.empty()) testo += ", ft. " + s.nFat;
  if (!s.nFat.empty() && !s.dtFat.Nulla()) testo += " del " + s.dtFat.Testo();
  return testo + ", euro " + ScriviImporto(s.importoE, kDecimaliScadenza);
}

std::string FatturaIncolonnata(const std::string& numero) {
  if (LunghezzaTesto(numero) <= kCaratteriFattura) return numero;
  return Mid(numero, 1, kCaratteriFattura - 1) + "…";
}

std::optional<std::string> ScadenzaCambiata(Ambiente& ambiente, const Scadenza& vista) {
  const auto ora = LeggiScadenza(ambiente, vista.numero);
  if (ora && *ora == vista) return std::nullopt;
  const std::string nome = NomeScadenza(ambiente, vista);
  if (!ora)
    return "Manca scadenza\n" + nome + "\nè stata eliminata da un'altra postazione o finestra";
  if (vista.Aperta() && !ora->Aperta()) {
    return nome + "\nè già stata pagata o presentata da un'altra postazione o finestra";
  }
  return nome + "\nè stata modificata da un'altra postazione o finestra:" + Differenze(vista, *ora);
}

void AggiornaScadenza(Ambiente& ambiente, std::int64_t numero, const std::vector<Coppia>& campi) {
  std::string assegnati;
  for (const auto& [campo, valore] : campi) {
    assegnati += (assegnati.empty() ? "" : ",") + campo + "=" + sql::LetteraleSql(valore);
  }
  if (assegnati.empty()) return;
  ambiente.ArchivioDi("scadenzario")
      .Esegui("update Scadenze set " + assegnati + " where " +
              sql::Criterio("Numero", "=", numero));
}

bool RegistrazioneSua(Ambiente& ambiente, const Scadenza& s) {
  const std::string chiave = " WHERE " + sql::Criterio("Anno", "=", s.anno) + " AND " +
                             sql::Criterio("NumDoc", "=", s.articolo);
  bool altrui = false;
  const auto sua = [&](const char* colonne) {
    Rs rs = ambiente.ArchivioDi("tessarc").Recordset(colonne + chiave);
    for (; !rs.Eof(); rs.MoveNext()) {
      for (std::size_t i = 0; i + 1 < rs.Colonne().size(); i += 2) {
        const std::string cfp = rs.Fields(i).Testo();
        const bool parte = UgualeTesto(cfp, "C") || UgualeTesto(cfp, "F");
        if (!parte) continue;
        if (UgualeTesto(cfp, s.cfp) && UgualeTesto(rs.Fields(i + 1).Testo(), s.conto)) return true;
        altrui = true;
      }
    }
    return false;
  };
  return s.articolo == 0 || sua("SELECT CFP, Conto, CfpA, ContoA FROM Articoli") ||
         sua("SELECT CFP, Conto FROM Movimenti") || !altrui;
}

std::string RifiutoDecimali(const Ambiente& ambiente, Importo importo) {
  constexpr std::int64_t kCentesimo = Importo::kScala / 100;
  const bool euro = ambiente.Euro();
  if (importo.Decimillesimi() % (euro ? kCentesimo : Importo::kScala) == 0) return {};
  return "l'importo " + ScriviImporto(importo, 0) +
         (euro ? " ha più di due decimali: gli importi sono in centesimi"
               : " ha dei decimali: in un anno in lire gli importi sono in lire intere");
}

bool SegniContrari(Importo uno, Importo altro) {
  return !uno.Zero() && !altro.Zero() && uno.Negativo() != altro.Negativo();
}

std::string NomeParte(Ambiente& ambiente, const std::string& cfp, const std::string& conto) {
  return ambiente
      .Cerca("tessarc", "ContiClientiFornitori", {{"Cod", conto}, {"CFP", cfp}}, "Descrizione")
      .Testo();
}

std::string ContoRiepilogativo(Ambiente& ambiente, const std::string& cfp,
                               const std::string& conto) {
  return ambiente
      .Cerca("tessarc", UgualeTesto(cfp, "C") ? "Clienti" : "Fornitori", {{"Cod", conto}}, "Conto")
      .Testo();
}

std::vector<Coppia> CampiImporto(Importo importoE) {
  return {{"Importo", EuroInLire(importoE, true)}, {"ImportoE", importoE}};
}

std::vector<Coppia> CampiPagato(Importo importoPagatoE) {
  return {{"ImportoPagato", EuroInLire(importoPagatoE, true)}, {"ImportoPagatoE", importoPagatoE}};
}

}  // namespace fenalto::duedates
