// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tools/ExchangeSimulator/HTTP/RestOverride.h"

namespace simulator {

RestOverride RestOverride::fromJSON(const QJsonObject& object) {
    RestOverride result;
    if (const QJsonValue status = object[QLatin1String("status")]; status.isDouble())
        result.status = status.toInt();
    if (const QJsonValue body = object[QLatin1String("body")]; body.isString())
        result.body = body.toString().toUtf8();
    if (const QJsonValue count = object[QLatin1String("count")]; count.isDouble())
        result.count = count.toInt();
    const QJsonObject headers = object[QLatin1String("headers")].toObject();
    for (auto header = headers.begin(); header != headers.end(); ++header)
        result.headers.append({header.key().toUtf8(), header->toVariant().toString().toUtf8()});
    if (const QJsonValue location = object[QLatin1String("location")]; location.isString())
        result.headers.append({"Location", location.toString().toUtf8()});
    result.delay = std::chrono::milliseconds(object[QLatin1String("delayMs")].toInteger());
    result.hang = object[QLatin1String("hang")].toBool();
    result.truncate = object[QLatin1String("truncate")].toBool();
    result.dripBytes = object[QLatin1String("dripBytes")].toInteger();
    result.dripPause = std::chrono::milliseconds(object[QLatin1String("dripMs")].toInteger(1000));
    result.chunked = object[QLatin1String("chunked")].toBool();
    return result;
}

HTTPResponse RestOverride::applied(const HTTPResponse& usual) const {
    HTTPResponse response = usual;
    response.headers += headers;
    response.truncate = truncate;
    response.chunked = chunked;
    response.dripBytes = dripBytes;
    response.dripPause = dripPause;
    if (status && *status != 200)
        response.body.clear();
    if (body)
        response.body = *body;
    response.status = status.value_or(body ? 200 : usual.status);
    return response;
}

} // namespace simulator
