// A table of another program: any bytes. What is refused says why; what is taken is a table whose
// values, read as each type of field, are refused with a reason or are what they were written as.
#include <string>

#include "Pretendi.h"
#include "core/archives/LettoreTabella.h"
#include "core/archives/LettoreValori.h"
#include "core/values/Testo.h"

namespace {

using namespace fenalto;

/// The same amount in the writing of the column is read back.
void ProvaImporto(const std::string& testo, archives::Decimali stile) {
  const auto letto = archives::LeggiImportoDiFile(testo, stile);
  if (!letto) {
    Pretendi(Utf8Valido(letto.Errore().messaggio));
    return;
  }
  const auto ancora =
      archives::LeggiImportoDiFile(letto.Valore().Testo(), archives::Decimali::Punto);
  Pretendi(ancora.Riuscito() && ancora.Valore() == letto.Valore());
}

void ProvaValori(const std::string& testo, archives::Decimali stile) {
  ProvaImporto(testo, stile);
  if (const auto data = archives::LeggiDataDiFile(testo)) {
    const auto ancora = archives::LeggiDataDiFile(data.Valore().Testo());
    Pretendi(ancora.Riuscito() && ancora.Valore() == data.Valore());
  }
  archives::CampoImporta campo;
  for (const Tipo tipo : {Tipo::Booleano, Tipo::Intero, Tipo::Testo}) {
    const auto letto = archives::LeggiValoreDiFile(testo, campo, tipo, stile);
    if (!letto)
      Pretendi(!letto.Errore().messaggio.empty() && Utf8Valido(letto.Errore().messaggio));
    else if (tipo == Tipo::Testo)
      Pretendi(LunghezzaTesto(letto.Valore().RifTesto()) <= campo.lunghezza);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dati, std::size_t quanti) {
  const auto letta = archives::LeggiTabellaDaTesto(Testo(dati, quanti));
  if (!letta) {
    Pretendi(!letta.Errore().messaggio.empty());
    return 0;
  }
  const TabellaCsv& tabella = letta.Valore();
  for (const auto& nome : tabella.nomi) Pretendi(!nome.empty());
  for (std::size_t i = 0; i < tabella.nomi.size(); ++i) {
    archives::StileDecimali stile;
    for (const auto& riga : tabella.righe) {
      Pretendi(riga.campi.size() == tabella.nomi.size() && riga.linea > 0);
      stile.Guarda(riga.campi[i]);
    }
    for (const auto& riga : tabella.righe) ProvaValori(riga.campi[i], stile.Stile());
  }
  return 0;
}
