#include "screens/duedates/GrigliaScadenze.h"

#include "core/values/Testo.h"

namespace fenalto::screens {
namespace {

constexpr std::size_t kColonnaNumero = 13;
/// Rows between looks at the user's wish to stop.
constexpr int kPasso = 2'000;

std::vector<ColonnaGriglia> Colonne() {
  return {{QStringLiteral("Conto"), Tipo::Testo, 60},
          {QStringLiteral("Ragsoc"), Tipo::Testo, 190},
          {QStringLiteral("DataScad"), Tipo::Data, 90},
          {QStringLiteral("ant"), Tipo::Booleano, 35},
          {QStringLiteral("ImportoE"), Tipo::Importo, 90},
          {QStringLiteral("Pagato"), Tipo::Importo, 90},
          {QStringLiteral("Residuo"), Tipo::Importo, 90},
          {QStringLiteral("Descrizione_scadenza"), Tipo::Testo, 145},
          {QStringLiteral("NProt"), Tipo::Intero, 50},
          {QStringLiteral("NFat"), Tipo::Testo, 60, 2, true},
          {QStringLiteral("DtFat"), Tipo::Data, 90},
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
  return Modello().Riga(quale)[kColonnaNumero].Intero();
}

}  // namespace fenalto::screens
