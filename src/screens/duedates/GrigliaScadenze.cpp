#include "screens/duedates/GrigliaScadenze.h"

#include "core/values/Testo.h"

namespace fenalto::screens {
namespace {

constexpr std::size_t kColonnaNumero = 13;
/// Rows between looks at the user's wish to stop.
constexpr int kPasso = 2'000;

std::vector<ColonnaGriglia> Colonne() {
  return {
      {QStringLiteral("Conto"), Tipo::Testo, 60},
      {QStringLiteral("Cliente/fornitore"), Tipo::Testo, 190, 2, QStringLiteral("Ragsoc")},
      {QStringLiteral("Scadenza"), Tipo::Data, 90, 2, QStringLiteral("DataScad")},
      {QStringLiteral("Anticipo"), Tipo::Booleano, 35, 2, QStringLiteral("ant")},
      {QStringLiteral("Importo"), Tipo::Importo, 90, 2, QStringLiteral("ImportoE")},
      {QStringLiteral("Pagato"), Tipo::Importo, 90},
      {QStringLiteral("Residuo"), Tipo::Importo, 90},
      {QStringLiteral("Descrizione"), Tipo::Testo, 145, 2, QStringLiteral("Descrizione_scadenza")},
      {QStringLiteral("Protocollo"), Tipo::Intero, 50, 2, QStringLiteral("NProt")},
      {QStringLiteral("N. fattura"), Tipo::Testo, 60, 2, QStringLiteral("NFat"), true},
      {QStringLiteral("Data fattura"), Tipo::Data, 90, 2, QStringLiteral("DtFat")},
      {QStringLiteral("Tipo"), Tipo::Testo, 40},
      {QStringLiteral("Stato"), Tipo::Testo, 45},
      {QStringLiteral("Numero"), Tipo::Intero, 60}};
}

std::vector<Valore> Celle(const duedates::RigaScadenza& r) {
  return {r.conto,       r.ragsoc, r.dataScad, r.anticipo, r.importoE, r.pagato, r.Residuo(),
          r.descrizione, r.nProt,  r.nFat,     r.dtFat,    r.tipo,     r.stato,  r.numero};
}

}  // namespace

GrigliaScadenze::GrigliaScadenze(const QString& finestra, QWidget* genitore, const QString& nome)
    : Griglia(nome, finestra, Colonne(), genitore) {
  const auto scelta = [this](int riga) {
    if (const auto numero = Numero(riga); numero != 0) emit Scelta(numero);
  };
  connect(this, &Griglia::RigaDoppioClic, this, scelta);
  connect(this, &Griglia::RigaInvio, this, scelta);
}

GrigliaScadenze::Totale GrigliaScadenze::Cerca(Ambiente& ambiente,
                                               const duedates::RicercaScadenze& ricerca) {
  Totale totale;
  std::vector<std::vector<Valore>> righe;
  const auto avanzamento = ambiente.Dialogo().Avvia("Ricerca scadenze", 0);
  duedates::CercaScadenze(ambiente, ricerca, [&](const duedates::RigaScadenza& riga) {
    righe.push_back(Celle(riga));
    const bool fornitore = UgualeTesto(riga.cfp, "F");
    (fornitore ? totale.daPagare : totale.daIncassare) += riga.Residuo();
    (fornitore ? totale.fornitori : totale.clienti) = true;
    totale.interrotta = ++totale.righe % kPasso == 0 && !avanzamento->Avanza(totale.righe);
    return !totale.interrotta;
  });
  Modello().Righe(std::move(righe));
  return totale;
}

void GrigliaScadenze::Svuota() {
  Modello().Righe({});
}

std::int64_t GrigliaScadenze::Numero(int riga) {
  const int quale = riga < 0 ? RigaCorrente() : riga;
  if (quale < 0 || quale >= Modello().rowCount()) return 0;
  return NumeroDi(Modello().Riga(quale));
}

std::int64_t GrigliaScadenze::NumeroDi(const std::vector<Valore>& riga) {
  return riga[kColonnaNumero].Intero();
}

}  // namespace fenalto::screens
