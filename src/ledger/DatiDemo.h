// The invented parties of the company `Demo`.
#pragma once

#include <array>
#include <string_view>

namespace fenalto {

struct AnagraficaDemo {
  std::string_view ragsoc1;
  std::string_view indirizzo;
  std::string_view cap;
  std::string_view localita;
  std::string_view provincia;
};

inline constexpr std::array<AnagraficaDemo, 25> kClientiDemo = {{
    {"Agriturismo Le Sette Querce", "Strada del Poggio 4", "53020", "Trequanda", "SI"},
    {"Albergo Miravalle S.n.c.", "Viale Roma 31", "38068", "Rovereto", "TN"},
    {"Arredamenti Ghisalberti S.r.l.", "Via dell'Artigianato 18", "24040", "Osio Sopra", "BG"},
    {"Bar Pasticceria L'Angolo Dolce", "Piazza Garibaldi 2", "43121", "Parma", "PR"},
    {"Boscolo & Tiengo Costruzioni S.r.l.", "Via Madonna Marina 140", "30015", "Chioggia", "VE"},
    {"Cantina Monteceresa S.Agr.", "Contrada Ceresa 9", "37030", "Montecchia di Crosara", "VR"},
    {"Carrozzeria Vernazza di Vernazza Luca", "Via Aurelia 212", "16167", "Genova", "GE"},
    {"Centro Estetico Aurora", "Corso Mazzini 77", "63100", "Ascoli Piceno", "AP"},
    {"Condominio Residenza dei Tigli", "Via dei Tigli 15", "20831", "Seregno", "MB"},
    {"Cooperativa Sociale Il Girasole", "Via Gramsci 5", "42019", "Scandiano", "RE"},
    {"D'Onofrio Ristorazione S.r.l.", "Via Tuscolana 880", "00174", "Roma", "RM"},
    {"Elettrotecnica Malaspina S.r.l.", "Via Carriona 60", "54033", "Carrara", "MS"},
    {"Falegnameria Zanotelli Ivo", "Via alle Segherie 3", "38033", "Cavalese", "TN"},
    {"Farmacia Dott.ssa Berardi", "Corso Umberto I 110", "70056", "Molfetta", "BA"},
    {"Floricoltura Verdefiore S.S.", "Via Acquasanta 27", "55049", "Viareggio", "LU"},
    {"Hotel Scoglio Bianco S.r.l.", "Lungomare Colombo 8", "84043", "Agropoli", "SA"},
    {"Istituto Comprensivo Collodoro", "Via della Scuola 1", "06024", "Gubbio", "PG"},
    {"Lavanderia Nuvola di Sanna Rita", "Via Sassari 43", "09124", "Cagliari", "CA"},
    {"Macelleria Fratelli Pautasso", "Via Cavour 12", "12042", "Bra", "CN"},
    {"Officine Meccaniche Rovatti S.p.A.", "Via dell'Industria 101", "41012", "Carpi", "MO"},
    {"Panificio Santacroce S.n.c.", "Via Matteotti 56", "86100", "Campobasso", "CB"},
    {"Studio Tecnico Ing. Peruzzotti", "Via XX Settembre 20", "21052", "Busto Arsizio", "VA"},
    {"Tipografia Inchiostro Vivo S.a.s.", "Via dei Mille 9", "33170", "Pordenone", "PN"},
    {"Trattoria Da Nunzia", "Vico Storto 6", "80134", "Napoli", "NA"},
    {"Vivai Torrebruna S.Agr.", "Contrada Fonte 2", "66050", "Torrebruna", "CH"},
}};

inline constexpr std::array<AnagraficaDemo, 15> kFornitoriDemo = {{
    {"Acciai e Profilati Cerrone S.p.A.", "Via Torino 300", "10036", "Settimo Torinese", "TO"},
    {"Assicurazioni Rondinelli & Partners", "Via Larga 14", "40138", "Bologna", "BO"},
    {"Autotrasporti Ferlito S.r.l.", "Zona Industriale Blocco 7", "95121", "Catania", "CT"},
    {"Cartotecnica Valsugana S.r.l.", "Via Brenta 22", "38051", "Borgo Valsugana", "TN"},
    {"Chimica Adriatica Delfino S.p.A.", "Via Darsena 88", "48122", "Ravenna", "RA"},
    {"Colorificio Arcobaleno Brianza S.r.l.", "Via Lecco 130", "20871", "Vimercate", "MB"},
    {"Distribuzione Utensili Nordest S.r.l.", "Via dell'Economia 41", "36100", "Vicenza", "VI"},
    {"Elettroforniture Lagorio S.r.l.", "Via Molteni 5", "16151", "Genova", "GE"},
    {"Idrosanitaria Pontelungo S.r.l.", "Via Emilia Ponente 250", "40132", "Bologna", "BO"},
    {"Imballaggi Casarotto S.n.c.", "Via Postumia 77", "31050", "Ponzano Veneto", "TV"},
    {"Legnami Valdastico S.r.l.", "Via Segheria 10", "36011", "Arsiero", "VI"},
    {"Minuterie Metalliche Galbusera S.r.l.", "Via per Oggiono 19", "23848", "Oggiono", "LC"},
    {"Servizi Informatici Pixelquadro S.r.l.", "Via Savonarola 8", "35137", "Padova", "PD"},
    {"Studio Commercialisti Marchetti-Ruocco", "Via Manzoni 44", "50121", "Firenze", "FI"},
    {"Vetreria San Donnino S.n.c.", "Via Pistoiese 305", "50145", "Firenze", "FI"},
}};

}  // namespace fenalto
