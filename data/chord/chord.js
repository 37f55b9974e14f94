// SPDX-License-Identifier: GPL-3.0-or-later
// Draws the transitions between areas of interest: an arc for each area, as long as its share of all transitions, and a
// ribbon for each pair. The numbers are in matrix.json, names and colours in cities.csv, both beside the page; a page
// that holds its data itself, or may not read files, takes those.
(function () {
  "use strict";

  var size = 800, outer = 230, inner = 212, longestName = 22;

  function percent(share) { return (100 * share).toFixed(1) + " %"; }

  function shortened(name) {
    return name.length <= longestName ? name : name.slice(0, longestName - 1) + "\u2026";
  }

  // Without any transition the shares are "nan", which JSON does not know.
  function readMatrix(text) { return JSON.parse(text.replace(/-?nan|-?inf/g, "0")); }

  function sum(numbers) { return numbers.reduce(function (a, b) { return a + b; }, 0); }

  function tell(areas, matrix, i) {
    var out = sum(matrix[i]), into = sum(matrix.map(function (row) { return row[i]; }));
    d3.select("#told").text(i === null ? "" : areas[i].name + ": " + percent(out - matrix[i][i]) + " of all transitions lead out, "
      + percent(into - matrix[i][i]) + " lead in, " + percent(matrix[i][i]) + " stay");
  }

  function chordText(areas, chord) {
    var s = chord.source, t = chord.target;
    return areas[s.index].name + " \u2192 " + areas[t.index].name + ": " + percent(s.value)
      + (s.index === t.index ? "" : "\n" + areas[t.index].name + " \u2192 " + areas[s.index].name + ": " + percent(t.value));
  }

  function draw(areas, matrix) {
    var layout = d3.layout.chord().padding(Math.min(0.04, 1.2 / areas.length)).sortSubgroups(d3.descending).matrix(matrix);
    var svg = d3.select("#diagram").append("svg").attr("viewBox", "0 0 " + size + " " + size)
      .append("g").attr("transform", "translate(" + size / 2 + "," + size / 2 + ")");
    if (!(sum(matrix.map(sum)) > 0)) {
      svg.append("text").attr("text-anchor", "middle").text("There are no transitions in this time.");
      return;
    }
    var chords = svg.append("g").selectAll("path").data(layout.chords()).enter().append("path")
      .attr("class", "chord")
      .attr("d", d3.svg.chord().radius(inner))
      .style("fill", function (d) { return areas[d.source.index].color; });
    chords.append("title").text(function (d) { return chordText(areas, d); });

    var groups = svg.append("g").selectAll("g").data(layout.groups()).enter().append("g").attr("class", "group");
    function choose(i) {
      chords.classed("faded", function (d) { return i !== null && d.source.index !== i && d.target.index !== i; });
      groups.classed("chosen", function (d) { return d.index === i; });
      if (i === null) d3.select("#told").text(""); else tell(areas, matrix, i);
    }
    groups.on("mouseenter", function (d) { choose(d.index); }).on("mouseleave", function () { choose(null); });
    groups.append("path").attr("d", d3.svg.arc().innerRadius(inner).outerRadius(outer))
      .style("fill", function (d) { return areas[d.index].color; });
    groups.append("text")
      .attr("dy", "0.35em")
      .style("font-size", Math.max(9, Math.min(13, 225 / areas.length)) + "px")
      .attr("text-anchor", function (d) { return (d.startAngle + d.endAngle) / 2 > Math.PI ? "end" : null; })
      .attr("transform", function (d) {
        var angle = (d.startAngle + d.endAngle) / 2;
        return "rotate(" + (angle * 180 / Math.PI - 90) + ") translate(" + (outer + 6) + ")"
          + (angle > Math.PI ? " rotate(180)" : "");
      })
      .text(function (d) { return shortened(areas[d.index].name); })
      .append("title").text(function (d) { return areas[d.index].name; });
  }

  function drawTexts(csv, json) { draw(d3.csv.parse(csv), readMatrix(json)); }

  function embedded() { return JSON.parse(document.getElementById("data").textContent); }

  function drawEmbedded() { var data = embedded(); drawTexts(data.cities, data.matrix); }

  if (document.getElementById("data") && embedded().alone) {
    drawEmbedded();
    return;
  }
  d3.text("matrix.json", "text/plain", function (problem, json) {
    if (problem || json === null || json === undefined) { drawEmbedded(); return; }
    d3.text("cities.csv", "text/plain", function (missing, csv) {
      if (missing || csv === null || csv === undefined) drawEmbedded(); else drawTexts(csv, json);
    });
  });
}());
