// Where references lead. A function of the menu map, or one of those that other windows open, needs
// nothing here: it is opened as its menu entry does and given the record. An archive needs a line
// in MappaMenu; a thing that isn't one window's own needs a line below.
#include <array>

#include "screens/main/FinestraPrincipale.h"

namespace fenalto::screens {

struct FinestraPrincipale::Destinazione {
  std::string_view nome;
  FinestraFunzione* (FinestraPrincipale::*apri)(const Rinvio& rinvio);
};

const FinestraPrincipale::Destinazione* FinestraPrincipale::DestinazioneDi(
    const std::string& nome) {
  static constexpr std::array kDestinazioni{
      Destinazione{"Registrazione", &FinestraPrincipale::VediRegistrazione},
      Destinazione{"StRegistriIva", &FinestraPrincipale::ApriRegistri},
      Destinazione{"@SelezioneArchivi", &FinestraPrincipale::ScegliArchivi},
  };
  for (const auto& una : kDestinazioni) {
    if (una.nome == nome) return &una;
  }
  return nullptr;
}

FinestraFunzione* FinestraPrincipale::Segui(const Rinvio& rinvio) {
  if (const auto* destinazione = DestinazioneDi(rinvio.funzione)) {
    return (this->*destinazione->apri)(rinvio);
  }
  if (const auto* archivio = ArchivioDietro(rinvio.funzione)) {
    return ApriArchivio(*archivio, rinvio.codice);
  }
  auto* finestra = ApriFunzione(QString::fromStdString(rinvio.funzione), rinvio.scheda);
  if (finestra != nullptr && !rinvio.codice.empty()) finestra->ApriRecord(rinvio);
  return finestra;
}

bool FinestraPrincipale::Libera(const QString& finestra) {
  auto* aperta = Aperta(finestra);
  if (aperta == nullptr) return true;
  if (ControlloUscita(*aperta)) return false;
  Scarica(*aperta);
  return true;
}

FinestraFunzione* FinestraPrincipale::ApriArchivio(const RigaArchivio& archivio,
                                                   const std::string& codice) {
  const QString nome = QString::fromLatin1(archivio.finestra);
  if (!costruttori_.contains(nome)) {
    ambiente_.Dialogo().Messaggio("l'archivio " + nome.toStdString() + " non è ancora disponibile");
    return nullptr;
  }
  if (!Libera(nome)) return nullptr;
  auto* finestra = Carica(nome, archivio.livello);
  if (finestra == nullptr) return nullptr;
  finestra->ApriScheda(0);
  finestra->ApriRecord({.codice = codice});
  finestra->setFocus();
  return finestra;
}

FinestraFunzione* FinestraPrincipale::VediRegistrazione(const Rinvio& rinvio) {
  if (!ambiente_.Dialogo().Conferma("Vedere la registrazione contabile ?")) return nullptr;
  if (rinvio.anno != ambiente_.Anno()) {
    ambiente_.Dialogo().Messaggio("selezionare l'anno " + std::to_string(rinvio.anno),
                                  Icona::Avviso);
    return nullptr;
  }
  const std::string registro = NzStr(ambiente_.Cerca(
      "tessarc", "ARTICOLI", {{"Anno", rinvio.anno}, {"NumDoc", rinvio.Numero()}}, "Riva"));
  const QString nome = registro.empty() ? QStringLiteral("Movimenti") : QStringLiteral("Fatture");
  if (!FunzioneDisponibile(nome)) {
    ambiente_.Dialogo().Messaggio("la finestra " + nome.toStdString() +
                                  " non è ancora disponibile");
    return nullptr;
  }
  // The reference may belong to the window that is closed.
  const Rinvio record{.codice = rinvio.codice};
  if (!Libera(nome)) return nullptr;
  auto* finestra = ApriFunzione(nome);
  if (finestra != nullptr) finestra->ApriRecord(record);
  return finestra;
}

FinestraFunzione* FinestraPrincipale::ApriRegistri(const Rinvio& rinvio) {
  QString nome = QStringLiteral("StRegistriIva");
  const auto* voce = VoceDi(nome);
  if (voce != nullptr && ambiente_.HaDiritto(voce->livello) &&
      ambiente_.Dialogo().Domanda("La stampa dei singoli registri iva è obsoleta\n"
                                  "SI= apro 'stampa registro iva unico'\n"
                                  "NO = proseguo con la stampa dei singoli registri",
                                  Bottoni::SiNo, Risposta::Si) == Risposta::Si) {
    nome = QStringLiteral("STRegistroIvaUnico");
  }
  return ApriFunzione(nome, rinvio.scheda);
}

FinestraFunzione* FinestraPrincipale::ScegliArchivi(const Rinvio& /*rinvio*/) {
  SelezioneArchivi();
  return nullptr;
}

}  // namespace fenalto::screens
