// INSERT, UPDATE and DELETE.
#include <algorithm>
#include <set>

#include "core/sql/Legatore.h"
#include "core/sql/Tipi.h"
#include "core/values/Testo.h"

namespace fenalto::sql {

namespace {

std::vector<std::string> NomiVisibili(const TabellaCatalogo& tabella) {
  std::vector<std::string> nomi;
  for (const ColonnaCatalogo& c : tabella.colonne) {
    if (!c.nascosta) nomi.push_back(c.nome);
  }
  return nomi;
}

/// The empty value that a column without Null holds, as a literal of its type.
EsprPtr VuotoDi(const ColonnaCatalogo& colonna, std::size_t posizione) {
  static const Letterale kTesto{Letterale::Genere::Testo, ""};
  static const Letterale kZero{Letterale::Genere::Numero, "0"};
  EsprPtr e = NuovaEspr(GenereEspr::Letterale, posizione);
  e->letterale = colonna.tipo == Tipo::Testo ? &kTesto : &kZero;
  TipoNaturale(*e);
  Converti(e, colonna.tipo);
  return e;
}

}  // namespace

void Legatore::LegaAzione(Albero& albero) {
  const TabellaCatalogo* tabella = catalogo_.Tabella(albero.tabella);
  const std::string nome(albero.tabella);
  if (tabella == nullptr) {
    const bool vista = catalogo_.Vista(albero.tabella) != nullptr;
    Rifiuta(albero.posizioneTabella, vista ? "\"" + nome + "\" è una vista: si scrive nelle tabelle"
                                           : "non c'è nessuna tabella \"" + nome + "\"");
  }
  albero.fonte = std::make_unique<Fonte>();
  albero.fonte->nome = albero.alias.empty() ? tabella->nome : std::string(albero.alias);
  albero.fonte->numero = ++fonti_;
  ApriTabella(*tabella, *albero.fonte);
  if (albero.genere == Istruzione::Genere::Inserimento) return LegaInserimento(albero, *tabella);
  Ambito ambito;
  ambito.fonti.push_back(albero.fonte.get());
  std::set<std::string> usati;
  for (Albero::Assegnazione& a : albero.assegnazioni) {
    const ColonnaCatalogo& colonna = ColonnaScrivibile(a, *tabella);
    if (!usati.insert(colonna.nome).second) {
      Rifiuta(a.posizione, "il campo \"" + colonna.nome + "\" è assegnato due volte");
    }
    LegaEspr(a.espr, ambito);
    Assegna(a.espr, colonna);
  }
  if (albero.dove) LegaBooleano(albero.dove, ambito, "WHERE");
}

const ColonnaCatalogo& Legatore::ColonnaScrivibile(Albero::Assegnazione& a,
                                                   const TabellaCatalogo& tabella) {
  const ColonnaCatalogo* colonna = tabella.Colonna(a.nome);
  if (colonna == nullptr || colonna->nascosta) {
    Rifiuta(a.posizione, "la tabella " + tabella.nome + " non ha il campo \"" +
                             std::string(a.nome) + "\"; ha " + Elenco(NomiVisibili(tabella)));
  }
  a.colonna = colonna->nome;
  return *colonna;
}

void Legatore::Assegna(EsprPtr& espr, const ColonnaCatalogo& colonna) {
  if (colonna.cifre) DiventaCifre(*espr);
  Converti(espr, colonna.tipo);
  if (colonna.ammetteNull || colonna.contatore || espr->genere == GenereEspr::Letterale) return;
  EsprPtr vuoto = VuotoDi(colonna, espr->posizione);
  espr = NuovoCalcolo(Fn::SeNullo, colonna.tipo, std::move(espr), std::move(vuoto));
}

void Legatore::LegaInserimento(Albero& albero, const TabellaCatalogo& tabella) {
  if (albero.query) LegaQuery(*albero.query, nullptr);
  const std::size_t valori = albero.query ? albero.query->colonne.size() : albero.valori.size();
  if (albero.assegnazioni.empty()) ScegliColonne(albero, tabella, valori);
  if (albero.assegnazioni.size() != valori) {
    Rifiuta(albero.posizioneTabella, "INSERT: " + std::to_string(albero.assegnazioni.size()) +
                                         " campi e " + std::to_string(valori) + " valori");
  }
  std::set<std::string> usati;
  for (std::size_t i = 0; i < valori; ++i) {
    Albero::Assegnazione& a = albero.assegnazioni[i];
    const ColonnaCatalogo& colonna = ColonnaScrivibile(a, tabella);
    if (!usati.insert(colonna.nome).second) {
      Rifiuta(a.posizione, "il campo \"" + colonna.nome + "\" è assegnato due volte");
    }
    if (!albero.query) {
      LegaEspr(albero.valori[i], Ambito{});
      Assegna(albero.valori[i], colonna);
      continue;
    }
    for (const auto& ramo : albero.query->rami) Assegna(ramo->voci[i].espr, colonna);
  }
}

void Legatore::ScegliColonne(Albero& albero, const TabellaCatalogo& tabella, std::size_t quante) {
  const std::vector<std::string> nomi = NomiVisibili(tabella);
  // A SELECT goes by its column names, whatever their order, when all of them are fields.
  bool perNome = albero.query != nullptr;
  if (albero.query) {
    for (const ColonnaFonte& c : albero.query->colonne) {
      const ColonnaCatalogo* colonna = tabella.Colonna(c.nome);
      perNome = perNome && colonna != nullptr && !colonna->nascosta;
    }
  }
  if (!perNome && nomi.size() != quante) {
    Rifiuta(albero.posizioneTabella, "INSERT senza elenco dei campi: la tabella " + tabella.nome +
                                         " ne ha " + std::to_string(nomi.size()) +
                                         ", i valori sono " + std::to_string(quante));
  }
  for (std::size_t i = 0; i < quante; ++i) {
    Albero::Assegnazione a;
    a.posizione = albero.posizioneTabella;
    // Views on the catalogue's and the query's names, which outlive the binding.
    a.nome = perNome ? std::string_view(albero.query->colonne[i].nome)
                     : std::string_view(tabella.Colonna(nomi[i])->nome);
    albero.assegnazioni.push_back(std::move(a));
  }
}

}  // namespace fenalto::sql
