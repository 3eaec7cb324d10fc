#include "screens/documents/parties/RigheDestinazioni.h"

#include <utility>

namespace fenalto::screens {
namespace {

using records::Digitato;

records::DescrizioneForma FormaDestinazione() {
  constexpr int kNome = 50;
  return {.campi = {Digitato("RagSoc1Dest_R", "Ragione sociale", kNome),
                    Digitato("ragsoc2Dest_R", "(seconda riga)", kNome),
                    Digitato("indirizzodest_R", "Indirizzo", kNome),
                    Digitato("capdest_r", "CAP", 10).Mostra(6),
                    Digitato("localitadest_r", "Località", kNome).Mostra(28).Accanto(),
                    Digitato("provdest_r", "Prov.", 4).Maiuscolo().Accanto(),
                    Digitato("CODDEST", "Cod.destinazione per fileconad", 20)}};
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
                                   const std::function<bool()>& raccogli) {
  auto* righe = &destinazioni;
  auto& dialogo = cliente.ambiente.Dialogo();
  return {.memoria = QStringLiteral("Destinazioni"),
          .riga = QObject::tr("Destinazione"),
          .nuova = QObject::tr("Nuova destinazione"),
          .aperta = "la nuova destinazione non è stata confermata: confermarla o abbandonarla",
          .elenco = QObject::tr("oppure diverse destinazioni da selezionare emettendo ddt"),
          .colonne = {{QStringLiteral("Posizione"), Tipo::Intero, 45, 2, QStringLiteral("Posi")},
                      {QStringLiteral("Ragione sociale"), Tipo::Testo, 190},
                      {QStringLiteral("Seconda riga"), Tipo::Testo, 110, 2,
                       QStringLiteral("(seconda riga)")},
                      {QStringLiteral("Indirizzo"), Tipo::Testo, 150},
                      {QStringLiteral("CAP"), Tipo::Testo, 55},
                      {QStringLiteral("Località"), Tipo::Testo, 120},
                      {QStringLiteral("Provincia"), Tipo::Testo, 45, 2, QStringLiteral("Prov.")},
                      {QStringLiteral("Codice destinatario"), Tipo::Testo, 80, 2,
                       QStringLiteral("Cod.dest.")}},
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
