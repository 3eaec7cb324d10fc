#include "screens/documents/parties/RigheDestinazioni.h"

#include <utility>

namespace fenalto::screens {
namespace {

records::DescrizioneForma FormaDestinazione() {
  constexpr int kNome = 50;
  constexpr int kCodice = 20;
  return {.campi = {{.nome = "RagSoc1Dest_R", .didascalia = "Ragione sociale", .caratteri = kNome},
                    {.nome = "ragsoc2Dest_R", .didascalia = "(seconda riga)", .caratteri = kNome},
                    {.nome = "indirizzodest_R", .didascalia = "Indirizzo", .caratteri = kNome},
                    {.nome = "capdest_r", .didascalia = "CAP", .caratteri = 10, .mostrati = 6},
                    {.nome = "localitadest_r",
                     .didascalia = "Località",
                     .caratteri = kNome,
                     .accanto = true,
                     .mostrati = 28},
                    {.nome = "provdest_r",
                     .didascalia = "Prov.",
                     .caratteri = 4,
                     .maiuscole = true,
                     .accanto = true},
                    {.nome = "CODDEST",
                     .didascalia = "Cod.destinazione per fileconad",
                     .caratteri = kCodice}}};
}

std::vector<std::vector<Valore>> Celle(const documents::DestinazioniCliente& destinazioni) {
  std::vector<std::vector<Valore>> righe;
  for (const documents::DestinazioneMerce& destinazione : destinazioni.Righe()) {
    std::vector<Valore> riga{Valore(destinazione.posi)};
    riga.insert(riga.end(), destinazione.testi.begin(), destinazione.testi.end());
    righe.push_back(std::move(riga));
  }
  return righe;
}

}  // namespace

DescrizioneRighe RigheDestinazioni(documents::DestinazioniCliente& destinazioni,
                                   archives::ContestoArchivio& cliente,
                                   std::function<bool()> raccogli) {
  auto* righe = &destinazioni;
  auto& dialogo = cliente.ambiente.Dialogo();
  return {.memoria = QStringLiteral("Destinazioni"),
          .riga = QObject::tr("Destinazione"),
          .nuova = QObject::tr("Nuova destinazione"),
          .aperta = "la nuova destinazione non è stata confermata: confermarla o abbandonarla",
          .elenco = QObject::tr("oppure diverse destinazioni da selezionare emettendo ddt"),
          .colonne = {{QStringLiteral("Posi"), Tipo::Intero, 45},
                      {QStringLiteral("Ragione sociale"), Tipo::Testo, 190},
                      {QStringLiteral("(seconda riga)"), Tipo::Testo, 110},
                      {QStringLiteral("Indirizzo"), Tipo::Testo, 150},
                      {QStringLiteral("CAP"), Tipo::Testo, 55},
                      {QStringLiteral("Località"), Tipo::Testo, 120},
                      {QStringLiteral("Prov."), Tipo::Testo, 45},
                      {QStringLiteral("Cod.dest."), Tipo::Testo, 80}},
          .forma = FormaDestinazione(),
          .primoCampo = "RagSoc1Dest_R",
          .scheda = [righe]() -> Scheda& { return righe->Riga(); },
          .inRiga = [righe] { return righe->InRiga(); },
          .rigaNuova = [righe] { return righe->RigaNuova(); },
          .modificate = [righe] { return righe->Modificate(); },
          .celle = [righe] { return Celle(*righe); },
          .apri = [righe, raccogli](
                      const Valore& posi) { return raccogli() && righe->Apri(posi.Intero()); },
          .inizia = [righe, raccogli, &cliente] { return raccogli() && righe->Nuova(cliente); },
          .conferma = [righe, &dialogo](std::string&) { return righe->Conferma(dialogo); },
          .elimina = [righe, &dialogo] { return righe->Elimina(dialogo); },
          .annulla = [righe] { righe->Annulla(); },
          .chiudi = [righe, &cliente] { righe->Leggi(cliente.ambiente, ""); }};
}

}  // namespace fenalto::screens
